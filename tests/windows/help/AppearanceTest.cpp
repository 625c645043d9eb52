#include "base/Version.h"
#include "windows/about/frmAbout.h"
#include "windows/about/frmSplash.h"
#include "windows/shared/Text.h"
#include "windows/shared/Theme.h"
#include "windows/shared/ThemedIcon.h"
#include "windows/support/Controls.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPalette>
#include <QProgressBar>
#include <QTreeView>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillmark::test {

namespace {

/// The relative luminance of a colour, 0 to 1, as WCAG 2 defines it.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

/// The colour of the most solid point of a drawing; an invalid one where nothing is drawn.
QColor inkOf(const QIcon& icon, QIcon::Mode mode) {
    const QImage image = icon.pixmap(QSize(24, 24), mode).toImage();
    QColor ink;
    int solid = 100;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor point = image.pixelColor(x, y);
            if (point.alpha() > solid) {
                solid = point.alpha();
                ink = QColor(point.rgb());
            }
        }
    }
    return ink;
}

/// The colour half way down an empty control, so many pixels from its left edge.
QColor drawnOn(QWidget& control, int x) {
    control.resize(160, 40);
    const QImage picture = control.grab().toImage();
    return picture.pixelColor(x, picture.height() / 2);
}

} // namespace

class AppearanceTest : public QObject {
    Q_OBJECT

private slots:
    void textAndTheEdgesOfBoxesCanBeSeen() {
        using enum QPalette::ColorRole;
        struct Row {
            double least;
            QPalette::ColorGroup group;
            std::vector<std::pair<QPalette::ColorRole, QPalette::ColorRole>> drawnOn;
        };
        const Row read{4.5,
                       QPalette::Active,
                       {{WindowText, Window},
                        {Text, Base},
                        {Text, AlternateBase},
                        {ButtonText, Button},
                        {HighlightedText, Highlight},
                        {ToolTipText, ToolTipBase},
                        {PlaceholderText, Base},
                        {Link, Base},
                        {LinkVisited, Base}}};
        const Row off{
            3,
            QPalette::Disabled,
            {{ButtonText, Button}, {WindowText, Window}, {Text, Base}, {PlaceholderText, Base}}};
        const Row edges{
            3,
            QPalette::Active,
            {{Dark, Window}, {Dark, Base}, {Dark, Button}, {Link, Window}, {Link, Button}}};
        for (const QPalette& palette : {lightPalette(), darkPalette()}) {
            for (const auto& [least, group, drawnOn] : {read, off, edges}) {
                for (const auto& [drawn, ground] : drawnOn) {
                    const double ratio =
                        contrast(palette.color(group, drawn), palette.color(group, ground));
                    const QString told = QString("%1 on %2: %3").arg(drawn).arg(ground).arg(ratio);
                    QVERIFY2(ratio >= least, qPrintable(told));
                }
            }
        }
    }

    void whatIsDrawnCanBeSeen() {
        for (const ThemeChoice theme : {ThemeChoice::Light, ThemeChoice::Dark}) {
            applyTheme(*qApp, theme);
            QComboBox selector;
            QLineEdit field;
            QGroupBox group;
            QTreeView list;
            QPushButton button;
            QCheckBox box;
            QProgressBar bar;
            const QPalette palette = QApplication::palette();
            const QColor window = palette.color(QPalette::Window);
            for (QWidget* widget : std::initializer_list<QWidget*>{&selector, &field, &group, &list,
                                                                   &button, &box, &bar}) {
                QVERIFY2(contrast(drawnOn(*widget, 0), window) >= 3,
                         widget->metaObject()->className());
            }
            button.setEnabled(false);
            const QColor off = palette.color(QPalette::Disabled, QPalette::ButtonText);
            QVERIFY(contrast(off, drawnOn(button, 8)) >= 3);
        }
    }

    void themesAreForcedOrOursAndIconsFollow() {
        // No desktop here, and so no colours of its own.
        for (const auto& [theme, expected] : {std::pair(ThemeChoice::Dark, darkPalette()),
                                              std::pair(ThemeChoice::System, lightPalette()),
                                              std::pair(ThemeChoice::Dark, darkPalette()),
                                              std::pair(ThemeChoice::Light, lightPalette())}) {
            applyTheme(*qApp, theme);
            const QPalette palette = QApplication::palette();
            QCOMPARE(palette.color(QPalette::Window), expected.color(QPalette::Window));
            const QColor text = palette.color(QPalette::ButtonText);
            const QColor disabled = palette.color(QPalette::Disabled, QPalette::ButtonText);
            for (const char* name :
                 {"start", "stop", "save", "print", "options", "help", "new", "delete", "browse",
                  "find", "back", "forward", "home", "close"}) {
                const QIcon icon = themedIcon(name);
                QVERIFY2(inkOf(icon, QIcon::Normal).rgb() == text.rgb(), name);
                QVERIFY2(inkOf(icon, QIcon::Disabled).rgb() == disabled.rgb(), name);
            }
        }
        QVERIFY(inkOf(applicationIcon(), QIcon::Normal).isValid());
    }

    void aboutAndSplashTellTheVersion() {
        const QString version = "Version " + shown(ApplicationVersion);
        QCOMPARE(child<QLabel>(frmSplash(), "lblVersion").text(), version);
        frmAbout about;
        QCOMPARE(child<QLabel>(about, "lblVersion").text(), version);
        about.show();
        press(about, "cmdOk");
        QVERIFY(!about.isVisible());
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(AppearanceTest)
#include "AppearanceTest.moc"

#include "base/Version.h"
#include "windows/about/frmAbout.h"
#include "windows/about/frmSplash.h"
#include "windows/shared/Text.h"
#include "windows/shared/Theme.h"
#include "windows/shared/ThemedIcon.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <cmath>

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

bool alike(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) + std::abs(one.green() - other.green()) +
               std::abs(one.blue() - other.blue()) <
           12;
}

} // namespace

class AppearanceTest : public QObject {
    Q_OBJECT

private slots:
    void textIsReadable_data() {
        QTest::addColumn<int>("text");
        QTest::addColumn<int>("ground");
        QTest::newRow("window") << int{QPalette::WindowText} << int{QPalette::Window};
        QTest::newRow("text") << int{QPalette::Text} << int{QPalette::Base};
        QTest::newRow("every other line") << int{QPalette::Text} << int{QPalette::AlternateBase};
        QTest::newRow("button") << int{QPalette::ButtonText} << int{QPalette::Button};
        QTest::newRow("selection") << int{QPalette::HighlightedText} << int{QPalette::Highlight};
        QTest::newRow("tooltip") << int{QPalette::ToolTipText} << int{QPalette::ToolTipBase};
        QTest::newRow("placeholder") << int{QPalette::PlaceholderText} << int{QPalette::Base};
        QTest::newRow("link") << int{QPalette::Link} << int{QPalette::Base};
        QTest::newRow("visited link") << int{QPalette::LinkVisited} << int{QPalette::Base};
    }
    void textIsReadable() {
        QFETCH(int, text);
        QFETCH(int, ground);
        for (const QPalette& palette : {lightPalette(), darkPalette()}) {
            const double ratio = contrast(palette.color(QPalette::ColorRole(text)),
                                          palette.color(QPalette::ColorRole(ground)));
            QVERIFY2(ratio >= 4.5, qPrintable(QString::number(ratio)));
        }
    }

    void iconsFollowThePalette_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"start", "stop", "save", "print", "options", "help", "new",
                                 "delete", "browse", "find", "back", "forward", "home", "close"}) {
            QTest::newRow(name) << QString(name);
        }
    }
    void iconsFollowThePalette() {
        QFETCH(QString, name);
        const QIcon icon = themedIcon(name);
        for (const ThemeChoice theme : {ThemeChoice::Light, ThemeChoice::Dark}) {
            applyTheme(*qApp, theme);
            const QPalette palette = QApplication::palette();
            QVERIFY(alike(inkOf(icon, QIcon::Normal), palette.color(QPalette::ButtonText)));
            QVERIFY(alike(inkOf(icon, QIcon::Disabled),
                          palette.color(QPalette::Disabled, QPalette::ButtonText)));
        }
    }

    void theEmblemIsDrawnAndUnknownNamesAreNot() {
        QVERIFY(inkOf(applicationIcon(), QIcon::Normal).isValid());
        QVERIFY(themedIcon("no such icon").isNull());
    }

    void themesAreForcedOrOurs() {
        applyTheme(*qApp, ThemeChoice::Dark);
        QCOMPARE(QApplication::palette().color(QPalette::Window),
                 darkPalette().color(QPalette::Window));
        // No desktop here, and so no colours of its own.
        applyTheme(*qApp, ThemeChoice::System);
        QCOMPARE(QApplication::palette().color(QPalette::Window),
                 lightPalette().color(QPalette::Window));
    }

    void namesAndVersionsAreShown() {
        const frmSplash splash;
        const frmAbout about;
        for (const QWidget* window :
             {static_cast<const QWidget*>(&splash), static_cast<const QWidget*>(&about)}) {
            QCOMPARE(window->findChild<QLabel*>("lblTitle")->text(), "Quillmark");
            QCOMPARE(window->findChild<QLabel*>("lblVersion")->text(),
                     "Version " + shown(ApplicationVersion));
        }
        QCOMPARE(splash.findChild<QLabel*>("lblPlatform")->text(), "Windows 9x / NT");
        QCOMPARE(about.windowTitle(), "About Quillmark");
    }

    void aboutClosesByButtonAndKey() {
        frmAbout about;
        about.show();
        QVERIFY(!about.isModal());
        QTest::mouseClick(about.findChild<QPushButton*>("cmdOk"), Qt::LeftButton);
        QVERIFY(!about.isVisible());
        about.show();
        QTest::keyClick(&about, Qt::Key_Escape);
        QVERIFY(!about.isVisible());
    }
};

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::AppearanceTest)
#include "AppearanceTest.moc"

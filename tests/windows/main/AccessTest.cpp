#include "windows/support/TestProgram.h"

#include <QAccessible>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include <map>

namespace quillmark::test {

namespace {

QStringList textsOf(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions) {
        texts += action->text();
    }
    return texts;
}

/// The caption of a control, if Alt and a letter of it lead there.
QStringList captionsOf(QWidget& control) {
    if (const auto* button = qobject_cast<QAbstractButton*>(&control)) {
        return {button->text()};
    }
    if (const auto* label = qobject_cast<QLabel*>(&control)) {
        return label->buddy() == nullptr ? QStringList() : QStringList(label->text());
    }
    if (const auto* group = qobject_cast<QGroupBox*>(&control)) {
        return {group->title()};
    }
    if (const auto* bar = qobject_cast<QMenuBar*>(&control)) {
        return textsOf(bar->actions());
    }
    QStringList tabs;
    if (const auto* bar = qobject_cast<QTabBar*>(&control)) {
        for (int i = 0; i < bar->count(); ++i) {
            tabs += bar->tabText(i);
        }
    }
    return tabs;
}

/// "Alt+O: &Options, Sort &On" for each key that leads to two things.
QStringList sharedKeys(const QStringList& captions) {
    std::map<QString, QStringList> keys;
    for (const QString& caption : captions) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (!key.isEmpty()) {
            keys[key.toString()] += caption;
        }
    }
    QStringList shared;
    for (const auto& [key, leads] : keys) {
        shared += leads.size() > 1 ? QStringList(key + ": " + leads.join(", ")) : QStringList();
    }
    return shared;
}

QStringList sharedKeys(QWidget& window) {
    QStringList captions;
    QStringList shared;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (const auto* menu = qobject_cast<QMenu*>(control)) {
            shared += sharedKeys(textsOf(menu->actions()));
        } else if (control->window() == &window) {
            captions += captionsOf(*control);
        }
    }
    return shared + sharedKeys(captions);
}

QStringList namelessControls(const QWidget& window) {
    QStringList nameless;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const bool reached = control->isVisible() && control->focusProxy() == nullptr &&
                             (control->focusPolicy() & Qt::TabFocus) != 0;
        QAccessibleInterface* tool = QAccessible::queryAccessibleInterface(control);
        if (reached && tool != nullptr && tool->text(QAccessible::Name).isEmpty()) {
            nameless += control->metaObject()->className() + control->objectName();
        }
    }
    return nameless;
}

QStringList announcedSelectors(const QWidget& window) {
    QStringList names;
    for (QComboBox* selector : window.findChildren<QComboBox*>()) {
        names += QAccessible::queryAccessibleInterface(selector)->text(QAccessible::Name);
    }
    names.sort();
    return names;
}

} // namespace

/// What people need who work with the keys or with assistive tools.
class AccessTest : public QObject {
    Q_OBJECT

private slots:
    void eachKeyLeadsToOneThingAndEachControlHasAName() {
        const TestProgram program;
        QStringList seen;
        QStringList faults;
        const auto look = [&](QWidget& window) {
            seen += window.objectName();
            faults += sharedKeys(window) + namelessControls(window);
        };
        for (const auto& [name, button] :
             {std::pair("frmProfile", "cmdStart"), std::pair("frmConfig2", "cmdOptions")}) {
            const WhenModal dialog(named(name), [&look](QWidget& modal) {
                look(modal);
                modal.close();
            });
            press(program.window(), button);
        }
        program.control("noticeBar").show();
        program.window().showTraceWindow();
        program.control<QAction>("mnuContents").trigger();
        program.control<QAction>("mnuAbout").trigger();
        for (QWidget* open : QApplication::topLevelWidgets()) {
            look(*open);
        }
        for (const char* name :
             {"frmMain", "frmDebug", "frmHelp", "frmAbout", "frmProfile", "frmConfig2"}) {
            QVERIFY2(seen.contains(name), name);
        }
        QCOMPARE(faults.join("; "), "");
    }

    void selectorsAreAnnouncedWithTheirLabels() {
        const TestProgram program;
        program.folder.write("site.pro", "");
        auto& display = program.control<QComboBox>("cmbDisplay");
        QAccessibleInterface& tool = *QAccessible::queryAccessibleInterface(&display);
        QCOMPARE(announcedSelectors(program.window()),
                 QStringList({"Display: Host Directory List", "File Mask: All Files",
                              "Sort On: " + program.control<QComboBox>("cmbSort").currentText()}));
        QCOMPARE(tool.text(QAccessible::Value), "Host Directory List");
        QCOMPARE(tool.child(0)->childCount(), display.count());
        program.inProfileDialog([](QWidget& dialog) {
            child<QComboBox>(dialog, "cmboProfiles").setEditText("site");
            QCOMPARE(announcedSelectors(dialog),
                     QStringList({"Encryption: None: the password can be read on the way",
                                  "Profile Name: site", "Rules: Classic"}));
        });
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(AccessTest)
#include "AccessTest.moc"

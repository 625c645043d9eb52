#include "windows/shared/ElidedLabel.h"
#include "windows/shared/Text.h"
#include "windows/support/Answers.h"
#include "windows/support/TestProgram.h"
#include "windows/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>
#include <QUrl>

#include <tuple>

namespace quillmark::test {

namespace {

const std::string Example = QUILLMARK_EXAMPLE;

void press(QWidget& window, const char* button) {
    QTest::mouseClick(&child<QPushButton>(window, button), Qt::LeftButton);
}

/// Presses Start, fills the fields of the profile dialog, and presses a button there.
void throughProfileDialog(TestProgram& program, const std::map<QString, QString>& texts,
                          const QStringList& checks, const char* button = "cmdStart") {
    WhenModal dialog(named("frmProfile"), [&](QWidget& profile) {
        for (const auto& text : texts) {
            child<QLineEdit>(profile, text.first.toUtf8()).setText(text.second);
        }
        for (const QString& check : checks) {
            child<QCheckBox>(profile, check.toUtf8()).setChecked(true);
        }
        press(profile, button);
    });
    press(program.window(), "cmdStart");
    QVERIFY(dialog.acted());
}

/// A configuration that tells capital letters apart, and nothing else but the defaults.
std::string exactNames() {
    TestProgram defaults;
    std::string configuration = defaults.folder.read("Quillmark.ini");
    const std::string last = "#IGNORECASE=";
    return configuration.substr(0, configuration.rfind(last)) + last + "0\r\n";
}

QString frameAfterChoosing(TestProgram& program, const QString& display, const QString& mask) {
    choose(program, "cmbMask", mask);
    choose(program, "cmbDisplay", display);
    return program.control<QGroupBox>("Frame2").title();
}

QString cell(TestProgram& program, int row, int column = 0) {
    const QAbstractItemModel& model = *program.control<QAbstractItemView>("ListView1").model();
    return model.index(row, column).data().toString();
}

QStringList namelessControls(QWidget& window) {
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

QStringList announcedSelectors(QWidget& window) {
    QStringList names;
    for (QComboBox* selector : window.findChildren<QComboBox*>()) {
        names += QAccessible::queryAccessibleInterface(selector)->text(QAccessible::Name);
    }
    names.sort();
    return names;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void startsWithoutResults() {
        TestProgram program;
        for (const char* off : {"cmdStop", "cmdSave", "cmdPrint"}) {
            QVERIFY2(!program.control<QPushButton>(off).isEnabled(), off);
        }
        for (const char* off : {"cmbDisplay", "cmbMask", "cmbSort"}) {
            QVERIFY2(!program.control<QComboBox>(off).isEnabled(), off);
            QCOMPARE(program.control<QComboBox>(off).currentIndex(), 0);
        }
        QVERIFY(!program.control<QMenu>("mnuFile").isEnabled());
        QCOMPARE(program.control<QGroupBox>("Frame2").title(), "");
        QCOMPARE(program.window().windowTitle(), "Quillmark");
        QVERIFY(program.folder.read("Quillmark.ini").starts_with("#QUILLMARK=3.5.0\r\n"));
        QVERIFY(program.boxes.empty());
    }

    void resetsAForeignConfigurationAndSaysSo() {
        const TestProgram program(std::string("\0\xFF rubbish\n\0", 12));
        QCOMPARE(program.boxes.size(), 1U);
        QVERIFY(program.boxes.front().starts_with("Your configuration file is from an older"));
        QVERIFY(program.folder.read("Quillmark.ini").find("#CODE_MASKS=6") != std::string::npos);
    }

    void startsNothingWhenTheProfileDialogIsCancelled() {
        TestProgram program;
        throughProfileDialog(program, {{"StartPath", "C:\\site\\index.html"}}, {}, "cmdCancel");
        QCOMPARE(program.control<QAbstractItemView>("Message").model()->rowCount(), 0);
        QVERIFY(!program.control<QPushButton>("cmdSave").isEnabled());
    }

    void checksTheExampleSite() {
        TestProgram program(exactNames());
        throughProfileDialog(
            program,
            {{"StartPath", QString::fromStdString(ToBackSlashes(Example + "/index.html"))}},
            {"chkIgnoreValue", "chkCheckDupes"});

        QCOMPARE(program.window().windowTitle(), "Quillmark");
        for (const char* on : {"cmdStart", "cmdSave", "cmdPrint", "cmdOptions"}) {
            QVERIFY2(program.control<QPushButton>(on).isEnabled(), on);
        }
        QVERIFY(!program.control<QPushButton>("cmdStop").isEnabled());
        auto& list = program.control<QAbstractItemView>("ListView1");
        QVERIFY(program.window().focusWidget() == &list);
        QCOMPARE(list.selectionModel()->selectedRows(), {list.model()->index(0, 0)});
        QAbstractItemModel& messages = *program.control<QAbstractItemView>("Message").model();
        QTRY_COMPARE(messages.index(messages.rowCount() - 1, 0).data().toString(),
                     "Quillmark Finished");

        const std::vector<std::array<QString, 3>> displays = {
            {"Host Directory List", "Image Files", "Host Directory Listing (7 Entries)"},
            {"Host File List", "All Files", "Host File Listing (40 Files)"},
            {"Host File List", "Documents", "Host File Listing (5 Files)"},
            {"Host File References", "All Files", "Host References (146 Files)"},
            {"Unused Host Files", "All Files", "Unused Host Files (14 Files)"},
            {"Invalid References", "All Files", "Invalid References (11 Files)"},
            {"Ignored References", "All Files", "Ignored References (12 Files)"},
            {"Duplicate Files", "All Files", "Duplicate File Listing (1 Entries)"}};
        for (const auto& [display, mask, caption] : displays) {
            QCOMPARE(frameAfterChoosing(program, display, mask), caption);
        }
        frameAfterChoosing(program, "Host File List", "All Files");
        choose(program, "cmbSort", "Name");
        QVERIFY(cell(program, 0).endsWith("/about.html") || cell(program, 0) < cell(program, 1));
    }

    void saysWhatIsOnShow() {
        TestProgram program;
        const std::string page = Example + "/about.html";
        throughProfileDialog(program, {{"StartPath", QString::fromStdString(ToBackSlashes(page))}},
                             {});
        auto& line = program.control<ElidedLabel>("lblOnShow");
        const QString whole = "Results of " + QString::fromStdString(page);
        QCOMPARE(line.accessibleName(), whole);
        program.window().resize(560, 400);
        QTRY_COMPARE(line.toolTip(), line.text() == whole ? QString() : plainToolTip(whole));
        QVERIFY(line.width() <= program.window().width());
    }

    void saysWhenThePagesCouldHardlyBeRead() {
        TestProgram program;
        const TempFolder site;
        const auto& bar = program.control<QWidget>("noticeBar");
        for (const auto& [name, page, notice] :
             {std::tuple("unix.html", "<a href=\"a.html\">\n<a href=\"b.html\">\n",
                         "not read to the end"),
              std::tuple("dos.html", "<a href=\"dos.html\">\r\n\r\n", ""),
              std::tuple("secure.html", "<a href=\"https://a.example/\">\r\n\r\n",
                         "begins with \"https:\" was taken for a file")}) {
            const std::string start = ToBackSlashes(site.write(name, page).string());
            throughProfileDialog(program, {{"StartPath", QString::fromStdString(start)}}, {});
            QCOMPARE(bar.isVisible(), *notice != '\0');
            const QString text = program.control<QLabel>("lblNotice").text();
            QVERIFY2(text.contains(notice), qPrintable(text));
        }
        QTest::mouseClick(&program.control<QToolButton>("cmdCloseNotice"), Qt::LeftButton);
        QVERIFY(!bar.isVisible());
    }

    void checksAgainWithTheWebRules() {
        TestProgram program;
        const TempFolder site;
        site.write("team.html", "<p id=coach>\n");
        const std::string page =
            site.write("index.html",
                       "<a href='Team.htm'>\n<a href=team.html#couch>\n"
                       "<form action=\"sign.php\"></form><a href=https://a.example/>\n")
                .string();
        throughProfileDialog(program, {{"StartPath", QString::fromStdString(ToBackSlashes(page))}},
                             {});
        QVERIFY(program.control<QWidget>("noticeBar").isVisible());
        press(program.window(), "cmdWebRules");
        QVERIFY(!program.control<QWidget>("noticeBar").isVisible());
        const QAbstractItemModel& rows = *program.control<QAbstractItemView>("ListView1").model();
        QStringList seen;
        for (const char* display : {"Invalid References", "Ignored References"}) {
            seen += frameAfterChoosing(program, display, "All Files");
            for (int row = 0; row < rows.rowCount(); ++row) {
                seen += cell(program, row).section('/', -1) + " " + cell(program, row, 2) + " " +
                        cell(program, row, 3) + " " +
                        rows.index(row, 3).data(Qt::ToolTipRole).toString();
            }
        }
        QCOMPARE(seen.join('\n'), "Invalid References (2 Errors, 1 Note)\n"
                                  "Team.htm 1 there is no such file \n"
                                  "team.html#couch 2 the page has no such id "
                                  "Did you mean team.html#coach?\n"
                                  "sign.php 3 Note: there is no such file \n"
                                  "Ignored References (1 Files)\n"
                                  " 3 another site ");
        auto& view = program.control<QAbstractItemView>("ListView1");
        view.setCurrentIndex(rows.index(0, 0));
        emit view.customContextMenuRequested({});
        QCOMPARE(program.control<QAction>("mnuEdit2").text(), "Edit at Line 3");
        program.control<QAction>("mnuEdit2").trigger();
        QCOMPARE(program.shell.opened, std::vector<std::string>{ToBackSlashes(page) + ":3"});
        const WhenModal dialog(named("frmProfile"), [](QWidget& profile) {
            QCOMPARE(child<QComboBox>(profile, "cmbRules").currentText(), "Classic");
            press(profile, "cmdCancel");
        });
        press(program.window(), "cmdStart");
        QVERIFY(dialog.acted());
    }

    void offersToTellCapitalLettersApart() {
        TestProgram program;
        const TempFolder site;
        site.write("Team.html", "");
        const std::string page = site.write("index.html", "<a href=team.html>\n").string();
        const WhenModal dialog(named("frmProfile"), [&](QWidget& profile) {
            child<QLineEdit>(profile, "StartPath")
                .setText(QString::fromStdString(ToBackSlashes(page)));
            child<QComboBox>(profile, "cmbRules").setCurrentText("Web");
            press(profile, "cmdStart");
        });
        press(program.window(), "cmdStart");
        QVERIFY(dialog.acted());
        auto& button = program.control<QPushButton>("cmdWebRules");
        QVERIFY(button.isVisible());
        QCOMPARE(button.text(), "&Check Again With Letter Case");
        QVERIFY(frameAfterChoosing(program, "Invalid References", "All Files").contains("0 "));
        press(program.window(), "cmdWebRules");
        QVERIFY(!button.isVisible());
        QVERIFY(frameAfterChoosing(program, "Invalid References", "All Files").contains("1 Error"));
    }

    void toolTipsOfMessagesShowWhatLooksLikeMarkUp() {
        TestProgram program;
        const std::string start = "C:\\<img src=x.gif>\\index.html";
        throughProfileDialog(program, {{"StartPath", QString::fromStdString(start)}}, {});
        const QAbstractItemModel& messages = *program.control<QListView>("Message").model();
        QTRY_VERIFY(messages.rowCount() > 3);
        int seen = 0;
        for (int row = 0; row < messages.rowCount(); ++row) {
            const QString tip = messages.index(row, 0).data(Qt::ToolTipRole).toString();
            QVERIFY(!tip.contains("<img"));
            seen += tip.contains("&lt;img src=x.gif&gt;") ? 1 : 0;
        }
        QVERIFY(seen > 0);
    }

    void takesADroppedPageForTheStartPath() {
        TestProgram program;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Example + "/index.html"))});
        QString proposed;
        const WhenModal dialog(named("frmProfile"), [&](QWidget& profile) {
            proposed = child<QLineEdit>(profile, "StartPath").text();
            QTest::keyClick(&profile, Qt::Key_Escape);
        });
        QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&program.window(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&program.window(), &drop);
        QTRY_VERIFY(dialog.acted());
        QCOMPARE(proposed.toStdString(), ToBackSlashes(Example + "/index.html"));
    }

    void opensHelpAboutAndDocumentation() {
        TestProgram program;
        program.control<QAction>("mnuContents").trigger();
        program.control<QAction>("mnuAbout").trigger();
        QStringList windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                windows << window->objectName();
            }
        }
        QVERIFY(windows.contains("frmHelp"));
        QVERIFY(windows.contains("frmAbout"));
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            const Answer answer(button);
            program.control<QAction>("mnuWebSite").trigger();
            QTRY_VERIFY(answer.acted());
            QCOMPARE(answer.text(), "Open the Quillmark Documentation page in your browser?");
        }
        QTRY_COMPARE(program.shell.opened.size(), 1U);
        QVERIFY(program.shell.opened.front().ends_with("\\index.html"));
    }

    void namesEveryControlForAssistiveTools() {
        TestProgram program;
        QStringList nameless = namelessControls(program.window());
        for (const auto& [button, dialog] :
             {std::pair("cmdStart", "frmProfile"), std::pair("cmdOptions", "frmConfig2")}) {
            const WhenModal shown(named(dialog), [&nameless](QWidget& window) {
                nameless += namelessControls(window);
                window.close();
            });
            press(program.window(), button);
            QVERIFY(shown.acted());
        }
        QCOMPARE(nameless.join(" "), "");
    }

    void refusesStartFilesThatTheInventoryLeavesOut() {
        TestProgram program;
        std::filesystem::create_symlink(program.folder.write(".hidden.html", ""),
                                        program.folder.path() / "link.html");
        for (const auto& [file, reason] :
             {std::pair("link.html", " is a symbolic link, and links are no files of the site"),
              std::pair(".hidden.html", " is hidden, since its name begins with \".\"")}) {
            const std::string path = (program.folder.path() / file).string();
            const WhenModal tried(named("frmProfile"), [&, reason = reason](QWidget& dialog) {
                child<QLineEdit>(dialog, "StartPath")
                    .setText(QString::fromStdString(ToBackSlashes(path)));
                const Answer told(QMessageBox::Ok);
                press(dialog, "cmdStart");
                QVERIFY2(told.text().contains(reason), qPrintable(told.text()));
                QVERIFY(dialog.isVisible());
                press(dialog, "cmdCancel");
            });
            press(program.window(), "cmdStart");
            QVERIFY(tried.acted());
            QCOMPARE(program.control<QAbstractItemView>("Message").model()->rowCount(), 0);
        }
    }

    void announcesSelectorsWithTheirLabels() {
        TestProgram program;
        program.folder.write("site.pro", "");
        auto& display = program.control<QComboBox>("cmbDisplay");
        QAccessibleInterface& tool = *QAccessible::queryAccessibleInterface(&display);
        QCOMPARE(announcedSelectors(program.window()),
                 QStringList({"Display: Host Directory List", "File Mask: All Files",
                              "Sort On: " + program.control<QComboBox>("cmbSort").currentText()}));
        QCOMPARE(tool.text(QAccessible::Value), "Host Directory List");
        QCOMPARE(tool.child(0)->childCount(), display.count());
        QStringList ofProfiles;
        const WhenModal shown(named("frmProfile"), [&](QWidget& dialog) {
            child<QComboBox>(dialog, "cmboProfiles").setEditText("site");
            ofProfiles = announcedSelectors(dialog);
            dialog.close();
        });
        press(program.window(), "cmdStart");
        QCOMPARE(ofProfiles, QStringList({"Encryption: None: the password can be read on the way",
                                          "Profile Name: site", "Rules: Classic"}));
    }

    void alternatesTheSoundsWhileTheyAreOn() {
        TestProgram program;
        const std::map<QString, QString> start = {
            {"StartPath", QString::fromStdString(ToBackSlashes(Example + "/about.html"))}};
        const auto toggleSounds = [&program] {
            const WhenModal dialog(named("frmConfig2"), [](QWidget& options) {
                child<QCheckBox>(options, "chkSound").toggle();
                press(options, "cmdOk");
            });
            press(program.window(), "cmdOptions");
        };
        throughProfileDialog(program, start, {});
        QVERIFY(program.soundsPlayed.empty());
        toggleSounds();
        for (int i = 0; i < 3; ++i) {
            throughProfileDialog(program, start, {});
        }
        const std::vector<std::string> expected = {"fastchug", "moo",      "engine",
                                                   "dhombls",  "fastchug", "moo"};
        QCOMPARE(program.soundsPlayed, expected);
    }

    void remembersItsPlace() {
        TestProgram program;
        program.window().resize(701, 503);
        program.window().close();
        program.start();
        QCOMPARE(program.window().size(), QSize(701, 503));
        QVERIFY(program.folder.read("Quillmark.ini").find("geometry") == std::string::npos);
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(MainWindowTest)
#include "MainWindowTest.moc"

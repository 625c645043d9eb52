#include "windows/shared/ElidedLabel.h"
#include "windows/shared/Text.h"
#include "windows/support/TestProgram.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QUrl>

#include <tuple>

namespace quillmark::test {

namespace {

namespace fs = std::filesystem;

const std::string Example = QUILLMARK_EXAMPLE;

void enterStartPath(QWidget& profile, const fs::path& page) {
    child<QLineEdit>(profile, "StartPath").setText(shown(ToBackSlashes(page.string())));
}

/// Checks the site of a page, with these boxes of the profile dialog on.
void check(const TestProgram& program, const fs::path& page, const char* rules = "Classic",
           const std::vector<const char*>& boxes = {}) {
    program.inProfileDialog([&](QWidget& profile) {
        enterStartPath(profile, page);
        child<QComboBox>(profile, "cmbRules").setCurrentText(rules);
        for (const char* box : boxes) {
            child<QCheckBox>(profile, box).setChecked(true);
        }
        press(profile, "cmdStart");
    });
}

QString frameAfterChoosing(const TestProgram& program, const QString& display,
                           const QString& mask = "All Files") {
    for (const auto& [name, entry] :
         {std::pair("cmbMask", mask), std::pair("cmbDisplay", display)}) {
        auto& selector = program.control<QComboBox>(name);
        choose(selector, selector.findText(entry));
    }
    return program.control<QGroupBox>("Frame2").title();
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void startsWithoutResults() {
        const TestProgram program;
        for (const char* off :
             {"cmdStop", "cmdSave", "cmdPrint", "cmbDisplay", "cmbMask", "cmbSort", "mnuFile"}) {
            QVERIFY2(!program.control(off).isEnabled(), off);
        }
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

    void checksTheExampleSite() {
        const TestProgram program;
        check(program, Example + "/index.html", "Classic", {"chkIgnoreValue", "chkCheckDupes"});
        QCOMPARE(program.window().windowTitle(), "Quillmark");
        QVERIFY(program.control("cmdPrint").isEnabled());
        QVERIFY(!program.control("cmdStop").isEnabled());
        auto& list = program.control<QAbstractItemView>("ListView1");
        QVERIFY(program.window().focusWidget() == &list);
        QCOMPARE(list.selectionModel()->selectedRows(), {list.model()->index(0, 0)});
        QTRY_COMPARE(program.messages().value(program.messages().size() - 1), "Quillmark Finished");
        for (const auto& [display, caption] :
             {std::pair("Host File References", "Host References (146 Files)"),
              std::pair("Unused Host Files", "Unused Host Files (13 Files)"),
              std::pair("Invalid References", "Invalid References (10 Files)"),
              std::pair("Ignored References", "Ignored References (12 Files)"),
              std::pair("Duplicate Files", "Duplicate File Listing (1 Entries)")}) {
            QCOMPARE(frameAfterChoosing(program, display), caption);
        }
        QCOMPARE(frameAfterChoosing(program, "Host File List", "Documents"),
                 "Host File Listing (5 Files)");
    }

    void saysWhatIsOnShow() {
        const TestProgram program;
        const TempFolder site;
        const fs::path page = site.write(std::string(200, 'a') + ".html", "");
        check(program, page);
        const auto& line = program.control<ElidedLabel>("lblOnShow");
        const QString whole = "Results of " + shown(page.string());
        QCOMPARE(line.accessibleName(), whole);
        program.window().resize(560, 400);
        QTRY_COMPARE(line.toolTip(), plainToolTip(whole));
        QVERIFY(line.text() != whole);
        QVERIFY(line.width() <= program.window().width());
    }

    void saysWhenThePagesCouldHardlyBeRead() {
        const TestProgram program;
        const TempFolder site;
        const auto& bar = program.control("noticeBar");
        for (const auto& [name, page, notice] :
             {std::tuple("unix.html", "<a href=\"a.html\">\n<a href=\"b.html\">\n",
                         "not read to the end"),
              std::tuple("dos.html", "<a href=\"dos.html\">\r\n\r\n", ""),
              std::tuple("secure.html", "<a href=\"https://a.example/\">\r\n\r\n",
                         "begins with \"https:\" was taken for a file")}) {
            check(program, site.write(name, page));
            QCOMPARE(bar.isVisible(), *notice != '\0');
            const QString text = program.control<QLabel>("lblNotice").text();
            QVERIFY2(text.contains(notice), qPrintable(text));
        }
        press(program.window(), "cmdCloseNotice");
        QVERIFY(!bar.isVisible());
    }

    void checksAgainWithTheWebRules() {
        const TestProgram program;
        const TempFolder site;
        site.write("team.html", "<p id=coach>\n");
        const fs::path page = site.write(
            "index.html", "<a href='Team.htm'>\n<a href=team.html#couch>\n"
                          "<form action=\"sign.php\"></form><a href=https://a.example/>\n");
        check(program, page);
        QVERIFY(program.control("noticeBar").isVisible());
        press(program.window(), "cmdWebRules");
        QVERIFY(!program.control("noticeBar").isVisible());
        auto& view = program.control<QAbstractItemView>("ListView1");
        const QAbstractItemModel& rows = *view.model();
        QStringList seen;
        for (const char* display : {"Invalid References", "Ignored References"}) {
            seen += frameAfterChoosing(program, display);
            for (int row = 0; row < rows.rowCount(); ++row) {
                const auto cell = [&](int column) { return rows.index(row, column); };
                seen += cell(0).data().toString().section('/', -1) + " " +
                        cell(2).data().toString() + " " + cell(3).data().toString() + " " +
                        cell(3).data(Qt::ToolTipRole).toString();
            }
        }
        QCOMPARE(seen.join('\n'), "Invalid References (2 Errors, 1 Note)\n"
                                  "Team.htm 1 there is no such file \n"
                                  "team.html#couch 2 the page has no such id "
                                  "Did you mean team.html#coach?\n"
                                  "sign.php 3 Note: there is no such file \n"
                                  "Ignored References (1 Files)\n"
                                  " 3 another site ");
        view.setCurrentIndex(rows.index(0, 0));
        emit view.customContextMenuRequested({});
        auto& edit = program.control<QAction>("mnuEdit2");
        QCOMPARE(edit.text(), "Edit at Line 3");
        edit.trigger();
        QCOMPARE(program.shell.opened, Lines{ToBackSlashes(page.string()) + ":3"});
        program.inProfileDialog([](QWidget& profile) {
            QCOMPARE(child<QComboBox>(profile, "cmbRules").currentText(), "Classic");
        });
    }

    void offersToTellCapitalLettersApart() {
        const TestProgram program;
        const TempFolder site;
        site.write("Team.html", "");
        check(program, site.write("index.html", "<a href=team.html>\n"), "Web");
        auto& button = program.control<QPushButton>("cmdWebRules");
        QVERIFY(button.isVisible());
        QCOMPARE(button.text(), "&Check Again With Letter Case");
        QVERIFY(frameAfterChoosing(program, "Invalid References").contains("0 "));
        press(program.window(), "cmdWebRules");
        QVERIFY(!button.isVisible());
        QVERIFY(frameAfterChoosing(program, "Invalid References").contains("1 Error"));
    }

    void toolTipsOfMessagesShowWhatLooksLikeMarkUp() {
        const TestProgram program;
        check(program, "C:\\<img src=x.gif>\\index.html");
        const QAbstractItemModel& messages = *program.control<QListView>("Message").model();
        QTRY_VERIFY(messages.rowCount() > 3);
        QStringList tips;
        for (int row = 0; row < messages.rowCount(); ++row) {
            tips += messages.index(row, 0).data(Qt::ToolTipRole).toString();
        }
        QVERIFY(!tips.join(' ').contains("<img"));
        QVERIFY(tips.join(' ').contains("&lt;img src=x.gif&gt;"));
    }

    void takesADroppedPageForTheStartPath() {
        const TestProgram program;
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(shown(Example + "/index.html"))});
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
        QCOMPARE(proposed, shown(ToBackSlashes(Example + "/index.html")));
    }

    void opensHelpAboutAndDocumentation() {
        const TestProgram program;
        program.control<QAction>("mnuContents").trigger();
        program.control<QAction>("mnuAbout").trigger();
        QStringList windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            windows += window->isVisible() ? window->objectName() : QString();
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

    void refusesStartFilesThatTheInventoryLeavesOut() {
        const TestProgram program;
        fs::create_symlink(program.folder.write(".hidden.html", ""),
                           program.folder.path() / "link.html");
        for (const auto& [file, reason] :
             {std::pair("link.html", " is a symbolic link, and links are no files of the site"),
              std::pair(".hidden.html", " is hidden, since its name begins with \".\"")}) {
            program.inProfileDialog([&, file = file, reason = reason](QWidget& dialog) {
                enterStartPath(dialog, program.folder.path() / file);
                const Answer told(QMessageBox::Ok);
                press(dialog, "cmdStart");
                QVERIFY2(told.text().contains(reason), qPrintable(told.text()));
                QVERIFY(dialog.isVisible());
                press(dialog, "cmdCancel");
            });
            QCOMPARE(program.messages(), QStringList());
        }
        QVERIFY(!program.control("cmdSave").isEnabled());
    }

    void alternatesTheSoundsWhileTheyAreOn() {
        const TestProgram program;
        check(program, Example + "/about.html");
        QVERIFY(program.soundsPlayed.empty());
        const WhenModal dialog(named("frmConfig2"), [](QWidget& options) {
            child<QCheckBox>(options, "chkSound").toggle();
            press(options, "cmdOk");
        });
        press(program.window(), "cmdOptions");
        for (int i = 0; i < 3; ++i) {
            check(program, Example + "/about.html");
        }
        QCOMPARE(program.soundsPlayed,
                 (Lines{"fastchug", "moo", "engine", "dhombls", "fastchug", "moo"}));
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

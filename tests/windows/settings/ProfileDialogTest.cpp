#include "base/Failure.h"
#include "settings/ProfileFile.h"
#include "windows/settings/ProfileList.h"
#include "windows/settings/frmProfile.h"
#include "windows/support/Answers.h"
#include "windows/support/TestContext.h"
#include "windows/support/WindowTest.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

#include <array>

namespace quillmark::test {

namespace {

/// The dialog on a folder with the profiles "MySite" and "my", "MySite" the current one.
struct Open {
    Open() {
        Settings& settings = all.workspace.settings;
        settings.profile.START_PATH = "\\site\\index.html";
        settings.profile.HOST_NAME = "host\xE4";
        SaveProfile(settings, all.files, "my");
        settings.profile.HOST_NAME = "host.of.site";
        SaveProfile(settings, all.files, "MySite");
        dialog = std::make_unique<frmProfile>(
            all.context, currentName, [this] { requireStartFile(); }, nullptr);
        dialog->show();
        static_cast<void>(QTest::qWaitForWindowActive(dialog.get()));
        names = dialog->findChild<ProfileList*>("cmboProfiles");
    }
    void press(const char* button) const {
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    QLineEdit& field(const char* name) const { return *dialog->findChild<QLineEdit*>(name); }
    void type(const char* name, const QString& text) const {
        field(name).setFocus();
        field(name).selectAll();
        QTest::keyClicks(&field(name), text);
    }
    QString text(const char* label) const { return dialog->findChild<QLabel*>(label)->text(); }
    bool shows(const char* name) const { return dialog->findChild<QWidget*>(name)->isVisible(); }
    bool isOn(const char* button) const {
        return dialog->findChild<QPushButton*>(button)->isEnabled();
    }
    void typeName(const QString& text) const {
        names->lineEdit()->selectAll();
        QTest::keyClicks(names, text);
    }
    void requireStartFile() const {
        if (!refusal.empty()) {
            throw Failure(1032, refusal);
        }
    }
    const Profile& profile() const { return all.workspace.settings.profile; }

    TestContext all;
    std::string currentName = "MySite";
    std::string refusal; ///< Why no check can begin.
    std::unique_ptr<frmProfile> dialog;
    ProfileList* names = nullptr;
};

/// Answers a question with Yes, and then the error that follows.
struct YesAndError {
    Answer yes{QMessageBox::Yes};
    QString error;
    WhenModal ok{[this](QWidget&) { return yes.acted(); },
                 [this](QWidget& box) {
                     error = dynamic_cast<QMessageBox&>(box).text();
                     box.close();
                 }};
};

} // namespace

class ProfileDialogTest : public QObject {
    Q_OBJECT

private slots:
    void proposesTheWebRulesForAPageOfToday() {
        for (const auto& [page, proposed] :
             {std::pair("<p>\r\n", "Classic"), std::pair("<p>\r\n<p>\n", "Web")}) {
            Open open;
            auto& rules = *open.dialog->findChild<QComboBox*>("cmbRules");
            const auto file = open.all.folder.write("start.html", page);
            open.all.dialogs.answers = {file};
            open.press("cmdNew");
            QCOMPARE(rules.currentText(), "Classic");
            open.press("cmdBrowse");
            QCOMPARE(rules.currentText(), proposed);
            open.dialog->proposeStartPath(ToBackSlashes(file.string()));
            QCOMPARE(rules.currentText(), proposed);
        }
    }

    void completesTheNameAndLoadsIt() {
        const Open open;
        QCOMPARE(open.field("HostName").text(), "host.of.site");
        open.typeName("MY");
        QCOMPARE(open.names->currentText(), "MySite");
        QCOMPARE(open.names->lineEdit()->selectedText(), "Site");
        open.typeName("zzz");
        QCOMPARE(open.field("HostName").text(), "host.of.site");
        open.field("HostName").setFocus();
        QTest::mouseClick(open.names->lineEdit(), Qt::LeftButton);
        QTRY_COMPARE(open.names->lineEdit()->selectedText(), "zzz");
        open.names->setNames({"my"});
        open.typeName("my");
        QCOMPARE(open.names->currentText(), "my");
        QVERIFY(!open.names->lineEdit()->hasSelectedText());
        QCOMPARE(open.field("HostName").text(), QString("host").append(QChar(0xE4)));
    }

    void deletingKeysDoNotComplete() {
        for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
            const Open open;
            open.typeName("my");
            QTest::keyClick(open.names, key);
            QCOMPARE(open.names->currentText(), "My");
            QCOMPARE(open.field("HostName").text(), "host.of.site"); // Nothing more happens.
            QTest::keyClicks(open.names, "s");
            QCOMPARE(open.names->currentText(), "MySite");
        }
    }

    void choosingAnEntryKeepsItsBytesAndWhatIsTyped() {
        const Open open;
        QTest::keyClick(open.names, Qt::Key_Down);
        QCOMPARE(open.names->currentText(), "my");
        QCOMPARE(open.profile().HOST_NAME, "host\xE4");
        open.type("UserName", "kept");
        QTest::keyClick(open.names, Qt::Key_Backspace); // Leaves "m", which is no entry.
        open.field("UserName").setFocus();
        QCOMPARE(open.field("UserName").text(), "kept");
        open.names->setName("my");
        open.press("cmdSave");
        QVERIFY(
            open.all.folder.read("my.pro").starts_with("#HOST_NAME=host\xE4\r\n#USER_NAME=kept\r"));
    }

    void asksBeforeChangesAreGivenUp() {
        for (const auto answer : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
            const bool saved = answer == QMessageBox::Yes;
            const bool closed = answer != QMessageBox::Cancel;
            const Open open;
            open.type("HostName", "edited");
            const Answer answered(answer);
            open.press("cmdStart");
            QCOMPARE(answered.text(), "Save changes to MySite?");
            QCOMPARE(open.dialog->started(), closed);
            QCOMPARE(open.dialog->isVisible(), !closed);
            QCOMPARE(open.all.folder.read("MySite.pro").starts_with("#HOST_NAME=edited\r\n"),
                     saved);
            QCOMPARE(open.profile().HOST_NAME, saved ? "edited" : "host.of.site");
            QCOMPARE(open.field("HostName").text(), "edited");
        }
    }

    void enterSavesAndEscapeCancels() {
        for (const auto& [key, host] :
             {std::pair(Qt::Key_Enter, "edited"), std::pair(Qt::Key_Escape, "host.of.site")}) {
            const Open open;
            open.type("HostName", "edited");
            const WhenModal pressed([](QWidget& w) { return qobject_cast<QMessageBox*>(&w); },
                                    [key = key](QWidget& box) { QTest::keyClick(&box, key); });
            open.press("cmdStart");
            QVERIFY(pressed.acted());
            QCOMPARE(open.profile().HOST_NAME, host);
        }
    }

    void marksWhatIsNotSaved() {
        const Open open;
        QVERIFY(!open.shows("lblEdited"));
        open.type("UserName", "x");
        QVERIFY(open.shows("lblEdited"));
        open.type("UserName", "\b");
        QVERIFY(!open.shows("lblEdited"));
        auto& box = *open.dialog->findChild<QCheckBox*>("chkRootLevel");
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, 8));
        QVERIFY(open.shows("lblEdited"));
        open.press("cmdSave");
        QVERIFY(!open.shows("lblEdited"));
    }

    void marksNumbersThatWouldNotBeSavedAsTyped() {
        const Open open;
        for (const auto& [box, caption] :
             {std::pair("txtHostPort", "Host Port"), std::pair("txtDepth", "Max Directory Depth"),
              std::pair("txtStartColumn", "File Size Start Column"),
              std::pair("txtEndColumn", "File Size End Column")}) {
            QAction& mark = *open.field(box).actions().constFirst();
            QVERIFY(!mark.isVisible());
            open.type(box, "abc");
            QVERIFY(mark.isVisible());
            QCOMPARE(open.text("lblNote"),
                     QString(caption) + ": \"abc\" is no whole number and is saved as 0.");
            open.type(box, "7");
            QVERIFY(!mark.isVisible());
            QCOMPARE(open.text("lblNote"), "");
        }
    }

    void tellsWhereTheSiteLiesAndOffersThePageThatIsHere() {
        const Open open;
        const std::filesystem::path page = open.all.folder.write("www/index.html", "");
        const QString path = QString::fromStdString(page.string());
        struct Row {
            QString typedPath;
            QString host;
            QString place;
            bool offered;
            bool canStart;
        };
        const QString onHost = "A site on a web host";
        const QString unnamed = onHost + ": enter its name under Host IP.";
        const QString missing = "Enter the page to start from, or press Browse.";
        for (const Row& row : {Row{"\\www\\index.html", "", "A site on this computer", false, true},
                               Row{"/www/no-such-page.html", "", unnamed, false, true},
                               Row{"/www/no-such-page.html", "host", onHost, false, true},
                               Row{"www/index.html", "host", onHost, false, true},
                               Row{path, "", unnamed, true, true},
                               Row{path.section('/', 0, -2), "", unnamed, true, true},
                               Row{"file://" + path, "", unnamed, true, true},
                               Row{"\b", "host", missing, false, false}}) {
            open.type("HostName", row.host.isEmpty() ? "\b" : row.host);
            open.type("StartPath", row.typedPath);
            QCOMPARE(open.text("lblPlace"), row.place);
            QCOMPARE(open.shows("cmdUseLocal"), row.offered);
            QCOMPARE(open.isOn("cmdStart"), row.canStart);
            if (row.offered) {
                open.press("cmdUseLocal");
                QCOMPARE(open.field("StartPath").text(), QString(path).replace('/', '\\'));
                QCOMPARE(open.text("lblPlace"), "A site on this computer");
                QVERIFY(!open.shows("cmdUseLocal"));
            }
        }
    }

    void staysOpenWhenNoCheckCanBegin() {
        Open open;
        open.refusal = "<b>.a.html</b> is hidden";
        const Answer told(QMessageBox::Ok);
        open.press("cmdStart");
        QCOMPARE(told.text(), "<b>.a.html</b> is hidden");
        QVERIFY(open.dialog->isVisible() && !open.dialog->started());
        QCOMPARE(open.dialog->focusWidget(), static_cast<QWidget*>(&open.field("StartPath")));
        open.refusal.clear();
        open.press("cmdStart");
        QVERIFY(open.dialog->started());
    }

    void choosesTheRulesAndSaysWhatTheyLeaveOut() {
        const Open open;
        const std::string classic = open.all.folder.read("MySite.pro");
        auto& rules = *open.dialog->findChild<QComboBox*>("cmbRules");
        const auto boxes = {"chkUpperLevels", "chkRootLevel", "chkIgnoreTopics", "chkIgnoreValue"};
        for (const bool web : {false, true, false}) {
            rules.setFocus();
            QTest::keyClick(&rules, web ? Qt::Key_Down : Qt::Key_Home);
            QCOMPARE(open.shows("lblEdited"), web);
            QCOMPARE(open.shows("SiteUrl"), web);
            QCOMPARE(open.shows("SiteRoot"), web);
            QCOMPARE(open.text("lblRules").startsWith("Sees what a browser sees."), web);
            for (const char* name : boxes) {
                const auto& box = *open.dialog->findChild<QCheckBox*>(name);
                QCOMPARE(box.isEnabled(), !web);
                QCOMPARE(box.toolTip() == "Only the classic rules know this setting", web);
            }
            if (web) {
                open.type("SiteUrl", "https://a.example/b,c/");
                QCOMPARE(open.text("lblNote"), ""); // Its comma does no harm.
                open.press("cmdSave");
                QCOMPARE(open.all.folder.read("MySite.pro"),
                         classic + "#RULES=web\r\n#SITE_URL=https://a.example/b,c/\r\n");
                open.press("cmdNew");
                QCOMPARE(rules.currentText(), "Classic");
                open.typeName("MySite");
                QCOMPARE(rules.currentText(), "Web");
                QCOMPARE(open.field("SiteUrl").text(), "https://a.example/b,c/");
                open.type("SiteUrl", "\b");
                QTest::keyClick(&rules, Qt::Key_Home);
                open.press("cmdSave");
                QCOMPARE(open.all.folder.read("MySite.pro"), classic);
            }
        }
    }

    void startsByEnterAndAsksForHelp() {
        const Open open;
        open.typeName("my");
        QSignalSpy help(open.dialog.get(), &frmProfile::helpRequested);
        open.dialog->findChild<QAction*>("mnuHelp")->trigger();
        QCOMPARE(help.count(), 1);
        QTest::keyClick(open.names, Qt::Key_Enter);
        QVERIFY(open.dialog->started());
        QCOMPARE(open.profile().HOST_NAME, "host.of.site");
    }

    void newThenSaveWritesTheFile() {
        const Open open;
        open.press("cmdNew");
        QCOMPARE(open.names->currentText(), "");
        QVERIFY(!open.dialog->findChild<QPushButton*>("cmdSave")->isEnabled());
        open.type("StartPath", "/x,y");
        QVERIFY(open.text("lblNote").contains("A text holds a comma"));
        open.names->setFocus();
        open.typeName("a.b");
        open.type("txtDepth", "2 levels");
        open.dialog->findChild<QCheckBox*>("chkCheck_URL")->setChecked(true);
        open.press("cmdSave");
        QCOMPARE(open.all.folder.read("a.b.pro"),
                 "#HOST_NAME=\r\n#USER_NAME=\r\n#START_PATH=/x,y\r\n#ACCOUNT_NAME=\r\n"
                 "#USER_PASSWORD=\r\n#GET_STATS=0\r\n#CHECK_DUPES=0\r\n#IGNORE_TOPICS=0\r\n"
                 "#IGNORE_CGI=0\r\n#CHECK_URL=1\r\n#IGNORE_VALUE=0\r\n#MAX_LEVELS=2\r\n"
                 "#START_COL=33\r\n#END_COL=43\r\n#HOST_PORT=21\r\n#DISABLE_PASV=0\r\n"
                 "#UPPER_LEVELS=0\r\n#ROOT_LEVEL=0\r\n#HOST_ALIAS=\r\n");
        QCOMPARE(open.names->currentText(), "a.b");
        QCOMPARE(open.names->count(), 3);
    }

    void aNameTypedLaterKeepsTheFields() {
        const Open open;
        open.press("cmdNew");
        open.typeName("none"); // Nothing was entered: the current profile shows.
        QCOMPARE(open.field("HostName").text(), "host.of.site");
        open.press("cmdNew");
        open.type("HostName", "typed first");
        open.names->setFocus();
        open.typeName("my"); // Completes to a profile, and shows that one.
        QCOMPARE(open.field("HostName").text(), "host.of.site");
        QTest::keyClicks(open.names, "new");
        QCOMPARE(open.field("HostName").text(), "typed first");
    }

    void deletesAfterAQuestion() {
        const Open open;
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            QVERIFY(std::filesystem::exists(open.all.folder.path() / "MySite.pro"));
            const Answer answer(button);
            open.press("cmdDelete");
            QCOMPARE(answer.text(), "Delete the profile MySite?");
        }
        QVERIFY(!std::filesystem::exists(open.all.folder.path() / "MySite.pro"));
        QCOMPARE(open.names->currentText() + open.field("HostName").text(), "");
        QCOMPARE(open.names->count(), 1);
        QCOMPARE(open.currentName, "");
    }

    void deletesOnlyWhatHasAFile() {
        const Open open;
        for (const auto& [name, hasFile] :
             {std::pair("MySite", true), std::pair("none", false), std::pair("my", true)}) {
            open.names->setNames({"my", "MySite"});
            open.typeName(name);
            QCOMPARE(open.isOn("cmdDelete"), hasFile);
            QVERIFY(open.isOn("cmdSave"));
        }
    }

    void failuresAreToldAndLoseNothing() {
        const std::array<std::array<QString, 3>, 3> rows = {
            {{"a/b", "21", "Error: Path not found ("},
             {QString(300, 'x'), "21", "Error: Disk failure: File name too long ("},
             {"MySite", "70000", "Error: Overflow ("}}};
        for (const auto& [name, port, error] : rows) {
            const Open open;
            open.typeName(name);
            open.type("HostName", "edited");
            open.type("txtHostPort", port);
            const Answer told(QMessageBox::Ok);
            open.press("cmdSave");
            const std::string folder = ToBackSlashes(open.all.folder.path().string());
            QCOMPARE(told.text(), error + QString::fromStdString(folder) + "\\" + name + ".pro)");
            QCOMPARE(open.field("HostName").text(), "edited");
            QCOMPARE(open.profile().HOST_NAME, "host.of.site");
        }
    }

    void failuresAfterAQuestionLoseNothing() {
        const Open open;
        std::filesystem::remove(open.all.folder.path() / "MySite.pro");
        const YesAndError deletion;
        open.press("cmdDelete");
        QVERIFY(deletion.error.startsWith("Error: File not found ("));
        QCOMPARE(open.names->count(), 1);
        QCOMPARE(open.names->currentText(), "MySite");
        QCOMPARE(open.field("HostName").text(), "host.of.site");
        open.typeName("a/b");
        open.type("HostName", "edited");
        const YesAndError start;
        open.press("cmdStart");
        QVERIFY(start.error.startsWith("Error: Path not found ("));
        QVERIFY(open.dialog->isVisible() && !open.dialog->started());
        QCOMPARE(open.field("HostName").text(), "edited");
    }

    void takesAStartPath() {
        Open open;
        open.dialog->proposeStartPath("\\site\\a.html");
        QCOMPARE(open.names->currentText(), "");
        const std::filesystem::path chosen = open.all.folder.write("b.html", "");
        open.all.dialogs.answers.emplace_back(chosen);
        open.press("cmdBrowse");
        open.press("cmdStart");
        QVERIFY(open.dialog->started());
        QCOMPARE(open.profile().START_PATH, ToBackSlashes(chosen.string()));
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(ProfileDialogTest)
#include "ProfileDialogTest.moc"

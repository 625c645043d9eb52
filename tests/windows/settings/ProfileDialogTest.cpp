#include "windows/settings/ProfileList.h"
#include "windows/settings/frmProfile.h"
#include "windows/support/Answers.h"
#include "windows/support/TestContext.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

namespace quillmark::test {

namespace {

std::string profileFile(std::string_view host) {
    std::string lines = "#HOST_NAME=";
    lines.append(host).append("\r\n#USER_NAME=u\r\n#START_PATH=/a.html\r\n#ACCOUNT_NAME=\r\n"
                              "#USER_PASSWORD=\r\n");
    for (int i = 0; i < 13; ++i) {
        lines += "#NUMBER=0\r\n";
    }
    return lines.append("#HOST_ALIAS=www\r\n");
}

/// The dialog on a folder with the profiles "MySite" and "my", "MySite" the current one.
struct Open {
    Open() {
        all.folder.write("MySite.pro", profileFile("host.of.site"));
        all.folder.write("my.pro", profileFile("host\xE4"));
        dialog = std::make_unique<frmProfile>(all.context, currentName, nullptr);
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
    void typeName(const QString& text) const {
        names->lineEdit()->selectAll();
        QTest::keyClicks(names, text);
    }
    const Profile& profile() const { return all.workspace.settings.profile; }

    TestContext all;
    std::string currentName = "MySite";
    std::unique_ptr<frmProfile> dialog;
    ProfileList* names = nullptr;
};

/// Answers a question with Yes, and then the error that follows.
struct YesAndError {
    Answer yes{QMessageBox::Yes};
    QString error;
    WhenModal ok{[](QWidget& window) {
                     const auto* box = qobject_cast<QMessageBox*>(&window);
                     return box != nullptr && box->button(QMessageBox::Ok) != nullptr;
                 },
                 [this](QWidget& window) {
                     error = dynamic_cast<QMessageBox&>(window).text();
                     window.close();
                 }};
};

} // namespace

class ProfileDialogTest : public QObject {
    Q_OBJECT
private slots:
    void completesTheNameAndLoadsIt();
    void deletingKeysDoNotComplete();
    void choosingAnEntryDoesNotComplete();
    void asksBeforeChangesAreGivenUp_data();
    void asksBeforeChangesAreGivenUp();
    void startByEnterAndLeaveByEscape();
    void startsWithoutAName();
    void newThenSaveWritesTheFile();
    void aNameTypedLaterKeepsTheFields();
    void deletesAfterAQuestion();
    void failuresAreToldAndLoseNothing_data();
    void failuresAreToldAndLoseNothing();
    void aFailedSaveStopsTheStart();
    void deletingAProfileThatIsGoneKeepsTheFields();
    void bytesSurviveWhatIsNotEdited();
    void takesAStartPath();
};

void ProfileDialogTest::completesTheNameAndLoadsIt() {
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

void ProfileDialogTest::deletingKeysDoNotComplete() {
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

void ProfileDialogTest::choosingAnEntryDoesNotComplete() {
    const Open open;
    QTest::keyClick(open.names, Qt::Key_Down);
    QCOMPARE(open.names->currentText(), "my");
    QCOMPARE(open.profile().HOST_NAME, "host\xE4");
    open.type("UserName", "kept");
    QTest::keyClick(open.names, Qt::Key_Backspace); // Leaves "m", which is no entry.
    open.field("UserName").setFocus();
    QCOMPARE(open.field("UserName").text(), "kept");
}

void ProfileDialogTest::asksBeforeChangesAreGivenUp_data() {
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("saved");
    QTest::newRow("yes") << QMessageBox::Yes << true << true;
    QTest::newRow("no") << QMessageBox::No << true << false;
    QTest::newRow("cancel") << QMessageBox::Cancel << false << false;
}

void ProfileDialogTest::asksBeforeChangesAreGivenUp() {
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, closed);
    QFETCH(const bool, saved);
    const Open open;
    open.type("HostName", "edited");
    Answer answered(answer);
    open.press("cmdStart");
    QCOMPARE(answered.text(), "Save changes to MySite?");
    QCOMPARE(open.dialog->started(), closed);
    QCOMPARE(open.dialog->isVisible(), !closed);
    QCOMPARE(open.all.folder.read("MySite.pro").starts_with("#HOST_NAME=edited\r\n"), saved);
    QCOMPARE(open.profile().HOST_NAME, saved ? "edited" : "host.of.site");
    QCOMPARE(open.field("HostName").text(), "edited");
}

void ProfileDialogTest::startByEnterAndLeaveByEscape() {
    const Open open;
    open.typeName("my");
    QSignalSpy help(open.dialog.get(), &frmProfile::helpRequested);
    open.dialog->findChild<QAction*>("mnuHelp")->trigger();
    QCOMPARE(help.count(), 1);
    QTest::keyClick(open.names, Qt::Key_Escape);
    QVERIFY(!open.dialog->isVisible() && !open.dialog->started());
    QCOMPARE(open.currentName, "MySite");
    open.dialog->show();
    QTest::keyClick(open.names, Qt::Key_Enter);
    QVERIFY(open.dialog->started());
    QCOMPARE(open.profile().HOST_NAME, "host.of.site");
}

void ProfileDialogTest::startsWithoutAName() {
    const Open open;
    open.press("cmdNew");
    open.type("HostName", "unnamed");
    open.press("cmdStart");
    QVERIFY(open.dialog->started());
    QCOMPARE(open.profile().HOST_NAME, "unnamed");
}

void ProfileDialogTest::newThenSaveWritesTheFile() {
    const Open open;
    open.press("cmdNew");
    QCOMPARE(open.names->currentText(), "");
    QVERIFY(!open.dialog->findChild<QPushButton*>("cmdSave")->isEnabled());
    QCOMPARE(open.field("HostName").text(), "");
    QCOMPARE(open.field("txtHostPort").text(), "21");
    open.type("StartPath", "/x,y");
    open.names->setFocus();
    open.typeName("a.b");
    open.type("txtDepth", "2 levels");
    open.dialog->findChild<QCheckBox*>("chkCheck_URL")->setChecked(true);
    QVERIFY(open.dialog->findChild<QLabel*>("lblComma")->isVisible());
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

void ProfileDialogTest::aNameTypedLaterKeepsTheFields() {
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

void ProfileDialogTest::deletesAfterAQuestion() {
    const Open open;
    Answer no(QMessageBox::No);
    open.press("cmdDelete");
    QCOMPARE(no.text(), "Delete the profile MySite?");
    QVERIFY(std::filesystem::exists(open.all.folder.path() / "MySite.pro"));
    const Answer yes(QMessageBox::Yes);
    open.press("cmdDelete");
    QVERIFY(!std::filesystem::exists(open.all.folder.path() / "MySite.pro"));
    QCOMPARE(open.names->currentText(), "");
    QCOMPARE(open.names->count(), 1);
    QCOMPARE(open.field("HostName").text(), "");
}

void ProfileDialogTest::failuresAreToldAndLoseNothing_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QString>("error");
    QTest::newRow("a slash") << "a/b"
                             << "21"
                             << "Error: Path not found (";
    QTest::newRow("300 letters") << QString(300, 'x') << "21"
                                 << "Error: Disk failure: File name too long (";
    QTest::newRow("a number too large") << "MySite"
                                        << "70000"
                                        << "Error: Overflow (";
}

void ProfileDialogTest::failuresAreToldAndLoseNothing() {
    QFETCH(const QString, name);
    QFETCH(const QString, port);
    QFETCH(const QString, error);
    const Open open;
    open.typeName(name);
    open.type("HostName", "edited");
    open.type("txtHostPort", port);
    Answer told(QMessageBox::Ok);
    open.press("cmdSave");
    const std::string folder = ToBackSlashes(open.all.folder.path().string());
    QCOMPARE(told.text(), error + QString::fromStdString(folder) + "\\" + name + ".pro)");
    QCOMPARE(open.field("HostName").text(), "edited");
    QCOMPARE(open.profile().HOST_NAME, "host.of.site");
}

void ProfileDialogTest::aFailedSaveStopsTheStart() {
    const Open open;
    open.typeName("a/b");
    open.type("HostName", "edited");
    const YesAndError answered;
    open.press("cmdStart");
    QVERIFY(answered.error.startsWith("Error: Path not found ("));
    QVERIFY(open.dialog->isVisible() && !open.dialog->started());
    QCOMPARE(open.field("HostName").text(), "edited");
}

void ProfileDialogTest::deletingAProfileThatIsGoneKeepsTheFields() {
    const Open open;
    std::filesystem::remove(open.all.folder.path() / "MySite.pro");
    const YesAndError answered;
    open.press("cmdDelete");
    QVERIFY(answered.error.startsWith("Error: File not found ("));
    QCOMPARE(open.names->count(), 1);
    QCOMPARE(open.names->currentText(), "MySite");
    QCOMPARE(open.field("HostName").text(), "host.of.site");
}

void ProfileDialogTest::bytesSurviveWhatIsNotEdited() {
    const Open open;
    open.names->setName("my");
    emit open.names->nameChosen();
    open.type("UserName", "edited");
    open.press("cmdSave");
    QVERIFY(open.all.folder.read("my.pro").starts_with("#HOST_NAME=host\xE4\r\n#USER_NAME=edited"));
}

void ProfileDialogTest::takesAStartPath() {
    Open open;
    open.dialog->proposeStartPath("\\site\\a.html");
    QCOMPARE(open.names->currentText(), "");
    QCOMPARE(open.field("StartPath").text(), "\\site\\a.html");
    const std::filesystem::path chosen = open.all.folder.write("b.html", "");
    open.all.dialogs.answers.emplace_back(chosen);
    open.press("cmdBrowse");
    open.press("cmdStart");
    QVERIFY(open.dialog->started());
    QCOMPARE(open.profile().START_PATH, ToBackSlashes(chosen.string()));
}

} // namespace quillmark::test

QTEST_MAIN(quillmark::test::ProfileDialogTest)
#include "ProfileDialogTest.moc"

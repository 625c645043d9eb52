#include "windows/settings/OpenProfile.h"

#include <QSignalSpy>

namespace quillmark::test {

class ProfileDialogTest : public QObject {
    Q_OBJECT

private slots:
    void completesTheNameAndLoadsIt() {
        const OpenProfile open;
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
            const OpenProfile open;
            open.typeName("my");
            QTest::keyClick(open.names, key);
            QCOMPARE(open.names->currentText(), "My");
            QCOMPARE(open.field("HostName").text(), "host.of.site"); // Nothing more happens.
            QTest::keyClicks(open.names, "s");
            QCOMPARE(open.names->currentText(), "MySite");
        }
    }

    void choosingAnEntryKeepsItsBytesAndWhatIsTyped() {
        const OpenProfile open;
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

    /// Enter says Yes, N says No, and Escape cancels.
    void asksBeforeChangesAreGivenUp() {
        for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_N, Qt::Key_Escape}) {
            const bool saved = key == Qt::Key_Enter;
            const bool closed = key != Qt::Key_Escape;
            const OpenProfile open;
            open.type("HostName", "edited");
            QString question;
            const WhenModal pressed([](QWidget& w) { return qobject_cast<QMessageBox*>(&w); },
                                    [&question, key](QWidget& box) {
                                        question = dynamic_cast<QMessageBox&>(box).text();
                                        QTest::keyClick(&box, key);
                                    });
            open.press("cmdStart");
            QCOMPARE(question, "Save changes to MySite?");
            QCOMPARE(open.dialog->started(), closed);
            QCOMPARE(open.dialog->isVisible(), !closed);
            QCOMPARE(open.all.folder.read("MySite.pro").starts_with("#HOST_NAME=edited\r\n"),
                     saved);
            QCOMPARE(open.profile().HOST_NAME, saved ? "edited" : "host.of.site");
            QCOMPARE(open.field("HostName").text(), "edited");
        }
    }

    void staysOpenWhenNoCheckCanBegin() {
        OpenProfile open;
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

    void startsByEnterAndAsksForHelp() {
        const OpenProfile open;
        open.typeName("my");
        QSignalSpy help(open.dialog.get(), &frmProfile::helpRequested);
        open.the<QAction>("mnuHelp").trigger();
        QCOMPARE(help.count(), 1);
        QTest::keyClick(open.names, Qt::Key_Enter);
        QVERIFY(open.dialog->started());
        QCOMPARE(open.profile().HOST_NAME, "host.of.site");
    }

    void newThenSaveWritesTheFile() {
        const OpenProfile open;
        open.press("cmdNew");
        QCOMPARE(open.names->currentText(), "");
        QVERIFY(!open.isOn("cmdSave"));
        open.type("StartPath", "/x,y");
        QVERIFY(open.text("lblNote").contains("A text holds a comma"));
        open.names->setFocus();
        open.typeName("a.b");
        open.type("txtDepth", "2 levels");
        open.the<QCheckBox>("chkCheck_URL").setChecked(true);
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
        const OpenProfile open;
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
        const OpenProfile open;
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
        const OpenProfile open;
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
            const OpenProfile open;
            open.typeName(name);
            open.type("HostName", "edited");
            open.type("txtHostPort", port);
            const Answer told(QMessageBox::Ok);
            open.press("cmdSave");
            const std::string folder = ToBackSlashes(open.all.folder.path().string());
            QCOMPARE(told.text(), error + shown(folder) + "\\" + name + ".pro)");
            QCOMPARE(open.field("HostName").text(), "edited");
            QCOMPARE(open.profile().HOST_NAME, "host.of.site");
        }
    }

    void failuresAfterAQuestionLoseNothing() {
        const OpenProfile open;
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
        OpenProfile open;
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

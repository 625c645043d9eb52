#include "windows/settings/OpenProfile.h"

#include <QSpinBox>

namespace quillmark::test {

/// The fields of the profile dialog, and what it says of them.
class ProfileFieldsTest : public QObject {
    Q_OBJECT

private slots:
    void proposesTheWebRulesForAPageOfToday() {
        for (const auto& [page, proposed] :
             {std::pair("<p>\r\n", "Classic"), std::pair("<p>\r\n<p>\n", "Web")}) {
            OpenProfile open;
            const auto& rules = open.the<QComboBox>("cmbRules");
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

    void marksWhatIsNotSaved() {
        const OpenProfile open;
        QVERIFY(!open.shows("lblEdited"));
        open.type("UserName", "x");
        QVERIFY(open.shows("lblEdited"));
        open.type("UserName", "\b");
        QVERIFY(!open.shows("lblEdited"));
        QTest::mouseClick(&open.the("chkRootLevel"), Qt::LeftButton, {}, QPoint(8, 8));
        QVERIFY(open.shows("lblEdited"));
        open.press("cmdSave");
        QVERIFY(!open.shows("lblEdited"));
    }

    void marksNumbersThatWouldNotBeSavedAsTyped() {
        const OpenProfile open;
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
        const OpenProfile open;
        const std::filesystem::path page = open.all.folder.write("www/index.html", "");
        const QString path = shown(page.string());
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

    void choosesTheRulesAndSaysWhatTheyLeaveOut() {
        const OpenProfile open;
        auto& rules = open.the<QComboBox>("cmbRules");
        const auto boxes = {"chkUpperLevels", "chkRootLevel", "chkIgnoreTopics", "chkIgnoreValue"};
        for (const bool web : {false, true, false}) {
            rules.setFocus();
            QTest::keyClick(&rules, web ? Qt::Key_Down : Qt::Key_Home);
            QCOMPARE(open.shows("lblEdited"), web);
            QCOMPARE(open.shows("SiteUrl"), web);
            QCOMPARE(open.shows("SiteRoot"), web);
            QCOMPARE(open.text("lblRules").startsWith("Sees what a browser sees."), web);
            for (const char* name : boxes) {
                QCOMPARE(open.isOn(name), !web);
                QCOMPARE(open.the(name).toolTip() == "Only the classic rules know this setting",
                         web);
            }
            if (web) {
                open.type("SiteUrl", "https://a.example/b,c/");
                QCOMPARE(open.text("lblNote"), ""); // Its comma does no harm.
                QCOMPARE(open.saved(), "#RULES=web\r\n#SITE_URL=https://a.example/b,c/\r\n");
                open.press("cmdNew");
                QCOMPARE(rules.currentText(), "Classic");
                open.typeName("MySite");
                QCOMPARE(rules.currentText(), "Web");
                QCOMPARE(open.field("SiteUrl").text(), "https://a.example/b,c/");
                open.type("SiteUrl", "\b");
                QTest::keyClick(&rules, Qt::Key_Home);
                QCOMPARE(open.saved(), "");
            }
        }
    }

    void proposesThePortUntilSomebodyEntersOne() {
        const OpenProfile open;
        const auto& encryptions = open.the<QComboBox>("cmbEncryption");
        QVERIFY(encryptions.currentText().contains("password can be read"));
        for (const auto& [encryption, port] :
             {std::pair(Encryption::Sftp, "22"), std::pair(Encryption::Implicit, "990"),
              std::pair(Encryption::Tls, "21"), std::pair(Encryption::None, "21")}) {
            open.choose(encryption);
            QCOMPARE(open.field("txtHostPort").text(), port);
            QCOMPARE(open.text("lblHostPort"), QString("Host Po&rt (") + port + "):");
        }
        open.field("txtHostPort").setText("2121");
        open.choose(Encryption::Sftp);
        QCOMPARE(open.field("txtHostPort").text(), "2121");
    }

    void asksForWhatTheEncryptionNeeds() {
        OpenProfile open;
        const std::filesystem::path key = open.all.folder.write("id \xE4", "");
        open.all.dialogs.answers.emplace_back(key);
        QVERIFY(open.shows("Account") && !open.shows("KeyFile") && !open.shows("cmdForget"));
        open.choose(Encryption::Sftp);
        QVERIFY(!open.shows("Account") && open.shows("KeyFile"));
        QVERIFY(!open.isOn("chkDisablePASV"));
        QCOMPARE(open.text("lblPassword"), "Pass&word");
        open.press("cmdKeyFile");
        QCOMPARE(open.text("lblPassword"), "Key Pass&word");
        open.the<QSpinBox>("spnConnections").setValue(99);
        QCOMPARE(open.saved(),
                 "#ENCRYPTION=sftp\r\n#CONNECTIONS=16\r\n#KEY_FILE=" + key.string() + "\r\n");
        open.choose(Encryption::None);
        QCOMPARE(open.text("lblPassword"), "Pass&word");
    }

    void forgetsWhomTheProfileTrusts() {
        Profile profile = newProfile();
        profile.ENCRYPTION = Encryption::Tls;
        profile.TRUSTED = certificateFingerprint({});
        const OpenProfile open(profile);
        QVERIFY(open.shows("cmdForget"));
        QVERIFY(open.the("cmdForget").toolTip().contains("00:00"));
        QVERIFY(open.saved().ends_with("\r\n#TRUSTED=" + profile.TRUSTED + "\r\n"));
        open.press("cmdForget");
        QVERIFY(!open.shows("cmdForget") && open.shows("lblEdited"));
        QCOMPARE(open.saved(), "#ENCRYPTION=tls\r\n");
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(ProfileFieldsTest)
#include "ProfileFieldsTest.moc"

#include "settings/ProfileFile.h"
#include "windows/settings/frmProfile.h"
#include "windows/support/TestContext.h"
#include "windows/support/WindowTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace quillmark::test {

namespace {

/// The dialog with a profile "Host" of a site on a web host.
struct OpenHost {
    explicit OpenHost(const Profile& profile = newProfile()) {
        Settings settings;
        settings.profile = profile;
        settings.profile.START_PATH = "/index.html";
        SaveProfile(settings, all.files, name);
        dialog = std::make_unique<frmProfile>(
            all.context, name, [] {}, nullptr);
        dialog->show();
        static_cast<void>(QTest::qWaitForWindowActive(dialog.get()));
    }
    template <typename Control> Control& control(const char* controlName) const {
        return *dialog->findChild<Control*>(controlName);
    }
    QString port() const { return control<QLineEdit>("txtHostPort").text(); }
    bool shows(const char* controlName) const { return control<QWidget>(controlName).isVisible(); }
    void choose(Encryption encryption) const {
        auto& box = control<QComboBox>("cmbEncryption");
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < static_cast<int>(encryption); ++i) {
            QTest::keyClick(&box, Qt::Key_Down);
        }
    }
    void press(const char* button) const {
        QTest::mouseClick(&control<QPushButton>(button), Qt::LeftButton);
    }
    std::string saved() const {
        press("cmdSave");
        const std::string bytes = all.folder.read("Host.pro");
        return bytes.substr(bytes.find("#HOST_ALIAS=") + 14);
    }

    TestContext all;
    std::string name = "Host";
    std::unique_ptr<frmProfile> dialog;
};

} // namespace

/// The controls of the profile dialog that tell how the host is reached.
class HostControlsTest : public QObject {
    Q_OBJECT

private slots:
    void proposesThePortUntilSomebodyEntersOne() {
        const OpenHost open;
        QVERIFY(open.control<QComboBox>("cmbEncryption")
                    .currentText()
                    .contains("password can be read"));
        for (const auto& [encryption, port] :
             {std::pair(Encryption::Sftp, "22"), std::pair(Encryption::Implicit, "990"),
              std::pair(Encryption::Tls, "21"), std::pair(Encryption::None, "21")}) {
            open.choose(encryption);
            QCOMPARE(open.port(), port);
            QCOMPARE(open.control<QLabel>("lblHostPort").text(),
                     QString("Host Po&rt (") + port + "):");
        }
        open.control<QLineEdit>("txtHostPort").setText("2121");
        open.choose(Encryption::Sftp);
        QCOMPARE(open.port(), "2121");
    }

    void asksForWhatTheEncryptionNeeds() {
        OpenHost open;
        const std::filesystem::path key = open.all.folder.write("id \xE4", "");
        open.all.dialogs.answers.emplace_back(key);
        QVERIFY(open.shows("Account") && !open.shows("KeyFile") && !open.shows("cmdForget"));
        open.choose(Encryption::Sftp);
        QVERIFY(!open.shows("Account") && open.shows("KeyFile"));
        QVERIFY(!open.control<QWidget>("chkDisablePASV").isEnabled());
        QCOMPARE(open.control<QLabel>("lblPassword").text(), "Pass&word");
        open.press("cmdKeyFile");
        QCOMPARE(open.control<QLabel>("lblPassword").text(), "Key Pass&word");
        open.control<QSpinBox>("spnConnections").setValue(99);
        QCOMPARE(open.saved(),
                 "#ENCRYPTION=sftp\r\n#CONNECTIONS=16\r\n#KEY_FILE=" + key.string() + "\r\n");
        open.choose(Encryption::None);
        QCOMPARE(open.control<QLabel>("lblPassword").text(), "Pass&word");
    }

    void forgetsWhomTheProfileTrusts() {
        Profile profile = newProfile();
        profile.ENCRYPTION = Encryption::Tls;
        profile.TRUSTED = certificateFingerprint({});
        const OpenHost open(profile);
        QVERIFY(open.shows("cmdForget"));
        QVERIFY(open.control<QWidget>("cmdForget").toolTip().contains("00:00"));
        QVERIFY(open.saved().ends_with("\r\n#TRUSTED=" + profile.TRUSTED + "\r\n"));
        open.press("cmdForget");
        QVERIFY(!open.shows("cmdForget") && open.shows("lblEdited"));
        QCOMPARE(open.saved(), "#ENCRYPTION=tls\r\n");
    }
};

} // namespace quillmark::test

QUILLMARK_WINDOW_TEST(HostControlsTest)
#include "HostControlsTest.moc"

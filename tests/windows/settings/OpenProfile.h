#pragma once

#include "settings/ProfileFile.h"
#include "windows/settings/ProfileList.h"
#include "windows/settings/frmProfile.h"
#include "windows/shared/Text.h"
#include "windows/support/TestContext.h"

namespace quillmark::test {

/// The profile dialog on a folder with the profiles "MySite" and "my", "MySite" the current one.
struct OpenProfile {
    explicit OpenProfile(const Profile& profile = newProfile()) {
        Settings& settings = all.workspace.settings;
        settings.profile = profile;
        settings.profile.START_PATH = "\\site\\index.html";
        settings.profile.HOST_NAME = "host\xE4";
        SaveProfile(settings, all.files, "my");
        settings.profile.HOST_NAME = "host.of.site";
        SaveProfile(settings, all.files, "MySite");
        dialog = std::make_unique<frmProfile>(
            all.context, currentName, [this] { requireStartFile(); }, nullptr);
        dialog->show();
        static_cast<void>(QTest::qWaitForWindowActive(dialog.get()));
        names = &the<ProfileList>("cmboProfiles");
    }
    template <typename Control = QWidget> Control& the(const char* name) const {
        return child<Control>(*dialog, name);
    }
    QLineEdit& field(const char* name) const { return the<QLineEdit>(name); }
    QString text(const char* label) const { return the<QLabel>(label).text(); }
    bool shows(const char* name) const { return the(name).isVisible(); }
    bool isOn(const char* button) const { return the(button).isEnabled(); }
    void press(const char* button) const { test::press(*dialog, button); }
    void type(const char* name, const QString& text) const {
        field(name).setFocus();
        field(name).selectAll();
        QTest::keyClicks(&field(name), text);
    }
    void typeName(const QString& text) const {
        names->lineEdit()->selectAll();
        QTest::keyClicks(names, text);
    }
    void choose(Encryption encryption) const {
        test::choose(the<QComboBox>("cmbEncryption"), static_cast<int>(encryption));
    }
    /// Saves, and tells what the file of "MySite" holds behind the values that every profile has.
    std::string saved() const {
        press("cmdSave");
        const std::string bytes = all.folder.read("MySite.pro");
        return bytes.substr(bytes.find("#HOST_ALIAS=") + 14);
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

} // namespace quillmark::test

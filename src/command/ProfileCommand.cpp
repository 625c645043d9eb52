#include "command/Commands.h"

#include "base/Printable.h"
#include "command/start/Password.h"
#include "command/start/ProgramPlace.h"
#include "command/start/RunSettings.h"
#include "command/terminal/Terminal.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "settings/SettingValue.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <span>

namespace quillmark {

namespace {

bool isProfileKey(std::string_view key) {
    return findSetting(ProfileKeys, key) != nullptr ||
           findSetting(OptionalProfileKeys, key) != nullptr;
}

void requireProfileKeys(const Options& options) {
    for (const std::string& assignment : options.set) {
        const std::string key = assignment.substr(0, assignment.find('='));
        if (!isProfileKey(key)) {
            throw CannotStart("a profile has no value \"" + key + "\"");
        }
    }
}

/// Refuses what would be read back differently: in a profile file a value ends at its first comma,
/// or, if it is read by key, at the end of the line.
void requireStorable(const Profile& profile) {
    for (const std::string& text : {profile.HOST_NAME, profile.USER_NAME, profile.START_PATH,
                                    profile.ACCOUNT_NAME, profile.HOST_ALIAS}) {
        if (text.find_first_of(",\r\n") != std::string::npos) {
            throw CannotStart("a profile cannot hold a comma or a line end: \"" + text + "\"");
        }
    }
    for (const std::string& text : {profile.SITE_URL, profile.SITE_ROOT, profile.KEY_FILE}) {
        if (text.find_first_of("\r\n") != std::string::npos) {
            throw CannotStart("a profile cannot hold a line end: \"" + printable(text) + "\"");
        }
    }
}

/// Warns if a user is left without a password, except with SFTP, where an agent or a key may log
/// in.
void updatePassword(const Options& options, Profile& profile) {
    auto password = givenPassword(options);
    if (!password && profile.USER_PASSWORD.empty() && !profile.USER_NAME.empty()) {
        password = askForPassword(profile);
    }
    if (password) {
        profile.USER_PASSWORD = *password;
    } else if (profile.USER_PASSWORD.empty() && !profile.USER_NAME.empty() &&
               profile.ENCRYPTION != Encryption::Sftp) {
        complain("no password is stored; set QUILLMARK_PASSWORD or name a --password-file to store "
                 "one");
    }
}

void saveProfile(const Options& options, SettingsFiles& files) {
    requireProfileKeys(options);
    Settings settings{{}, newProfile()};
    // A profile that is there keeps what the command line does not name.
    const std::vector<std::string> names = ListProfiles(files);
    if (std::find(names.begin(), names.end(), options.profile) != names.end()) {
        loadNamedProfile(options.profile, settings, files);
    }
    applyOptions(options, settings);
    requireStorable(settings.profile);
    updatePassword(options, settings.profile);
    SaveProfile(settings, files, options.profile);
}

void showProfile(const Options& options, SettingsFiles& files) {
    Settings settings{{}, newProfile()};
    loadNamedProfile(options.profile, settings, files);
    for (const std::span<const SettingKey> keys :
         {std::span<const SettingKey>(ProfileKeys),
          std::span<const SettingKey>(OptionalProfileKeys)}) {
        for (const SettingKey& setting : keys) {
            std::cout << setting.key << '=' << printable(valueText(settings, setting)) << '\n';
        }
    }
}

} // namespace

int runProfileCommand(const Options& options) {
    try {
        ProgramPlace place(options);
        if (options.action == Action::SaveProfile) {
            saveProfile(options, place.files());
        } else {
            showProfile(options, place.files());
        }
        return NothingInvalid;
    } catch (const std::exception& error) {
        complain(error.what());
        return NotStarted;
    }
}

} // namespace quillmark

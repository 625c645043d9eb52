#include "settings/ConfigurationFile.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "settings/DefaultSettings.h"
#include "settings/FieldReader.h"
#include "settings/SettingKeys.h"
#include "store/FileMasks.h"

#include <string>

namespace quillmark {

namespace {

constexpr std::string_view VersionPrefix = "#QUILLMARK=";
constexpr std::string_view VersionKey = VersionPrefix.substr(1, VersionPrefix.size() - 2);
constexpr std::string_view OlderVersionMessage =
    "Your configuration file is from an older version of Quillmark\r\nSettings will be reset";

/// A file that is cut short within its lists leaves the later ones empty: it held some items there,
/// and nobody knows which, so they are not taken from the built-in ones.
void clearLists(Configuration& configuration) {
    configuration.masks = {};
    configuration.lstCheckCommand.Clear();
    configuration.lstMakeAddition.Clear();
    configuration.lstCheckHTML.Clear();
}

/// The last line holds DEBUG in IGNORECASE's place, on purpose: that is how every file in use was
/// written, and what a user who saves the options finds at the next start.
SettingKey asWritten(SettingKey setting) {
    if (setting.place == SettingPlace(&Configuration::IGNORECASE)) {
        setting.place = &Configuration::DEBUG;
    }
    return setting;
}

} // namespace

bool LoadConfigurations(Settings& settings, SettingsFiles& files,
                        const std::function<void(std::string_view)>& messageBox) {
    try {
        const std::string bytes = files.read(ConfigurationFileName);
        FieldReader reader(bytes);
        if (!reader.readLine().starts_with(VersionPrefix)) {
            messageBox(OlderVersionMessage);
            SetDefaultSettings(settings);
            return false;
        }
        for (const SettingKey& setting : ConfigurationKeys) {
            if (setting.place == UserMasksPlace) {
                clearLists(settings.configuration);
            }
            readSetting(reader, settings, setting);
        }
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void ReadConfigurations(Settings& settings, SettingsFiles& files,
                        const std::function<void(std::string_view)>& messageBox) {
    if (!LoadConfigurations(settings, files, messageBox)) {
        SaveConfigurations(settings, files);
    }
}

void SaveConfigurations(Settings& settings, SettingsFiles& files) {
    SplitFileMasks(settings.configuration.fileMasksText, settings.configuration.masks.lstFileMasks);
    std::string bytes;
    appendLine(bytes, VersionKey, ApplicationVersion);
    for (const SettingKey& setting : ConfigurationKeys) {
        appendSetting(bytes, settings, asWritten(setting));
    }
    files.replace(ConfigurationFileName, bytes, FileAccess::Everyone);
}

} // namespace quillmark

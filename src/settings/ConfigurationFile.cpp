#include "settings/ConfigurationFile.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "settings/DefaultSettings.h"
#include "settings/FieldReader.h"
#include "settings/SettingKeys.h"
#include "store/FileCategory.h"

#include <string>

namespace quillmark {

namespace {

constexpr std::string_view VersionPrefix = "#QUILLMARK=";
// The same without the "#" and "=", which appendLine() adds.
constexpr std::string_view VersionKey = VersionPrefix.substr(1, VersionPrefix.size() - 2);
constexpr std::string_view OlderVersionMessage =
    "Your configuration file is from an older version of Quillmark\r\nSettings will be reset";

/// Empties the lists before they are read. If the file is cut short, the later ones stay empty:
/// nobody knows which items they held, and the built-in ones would be a guess.
void clearLists(Configuration& configuration) {
    configuration.masks = {};
    configuration.lstCheckCommand.Clear();
    configuration.lstMakeAddition.Clear();
    configuration.lstCheckHTML.Clear();
}

/// The last line holds the value of DEBUG under the key IGNORECASE, on purpose: every file in use
/// was written that way, and users know what they find at the next start.
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
        // Whatever is wrong with the file, a check can run with what was read of it.
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
    // Users edit the text; the list follows it here.
    SplitFileMasks(settings.configuration.fileMasksText, settings.configuration.masks.lstFileMasks);
    std::string bytes;
    appendLine(bytes, VersionKey, ApplicationVersion);
    for (const SettingKey& setting : ConfigurationKeys) {
        appendSetting(bytes, settings, asWritten(setting));
    }
    files.replace(ConfigurationFileName, bytes, FileAccess::Everyone);
}

} // namespace quillmark

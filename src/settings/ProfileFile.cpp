#include "settings/ProfileFile.h"

#include "base/Failure.h"
#include "settings/DefaultSettings.h"
#include "settings/FieldReader.h"
#include "settings/SettingKeys.h"
#include "settings/SettingValue.h"

namespace quillmark {

namespace {

constexpr std::string_view ProfileExtension = ".pro";

constexpr std::string_view KeyCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

/// Resets the values that a file need not have: those of the profile loaded before must not stay.
void forgetOptionalLines(Settings& settings) {
    const Settings fresh{{}, newProfile()};
    for (const SettingKey& setting : OptionalProfileKeys) {
        setByKey(settings, setting.key, valueText(fresh, setting));
    }
    settings.profile.otherLines.clear();
}

/// Sets the value. False if this version does not know the key or the value: a later one may.
bool takeOptionalValue(Settings& settings, std::string_view key, std::string_view value) {
    if (findSetting(OptionalProfileKeys, key) == nullptr) {
        return false;
    }
    try {
        setByKey(settings, key, value);
        return true;
    } catch (const SettingError&) {
        return false;
    }
}

/// Takes one line "#KEY=value". One of the nineteen keys stands here only because a comma in a text
/// moved all later fields. Such a line is not read, and the next save drops it.
void takeOptionalLine(Settings& settings, std::string_view line) {
    const std::size_t equals = line.find('=');
    const bool hasKey = line.starts_with('#') && equals != std::string_view::npos && equals > 1 &&
                        line.find_first_not_of(KeyCharacters, 1) == equals;
    if (!hasKey) {
        return;
    }
    const std::string_view key = line.substr(1, equals - 1);
    if (findSetting(ProfileKeys, key) == nullptr &&
        !takeOptionalValue(settings, key, line.substr(equals + 1))) {
        settings.profile.otherLines.emplace_back(line);
    }
}

void readOptionalLines(FieldReader& reader, Settings& settings) {
    forgetOptionalLines(settings);
    while (!reader.atEnd()) {
        takeOptionalLine(settings, reader.readLine());
    }
}

void appendOptionalLines(std::string& bytes, const Settings& settings) {
    const Settings fresh{{}, newProfile()};
    for (const SettingKey& setting : OptionalProfileKeys) {
        if (valueText(settings, setting) != valueText(fresh, setting)) {
            appendSetting(bytes, settings, setting);
        }
    }
    for (const std::string& line : settings.profile.otherLines) {
        bytes.append(line).append("\r\n");
    }
}

} // namespace

std::string profileFileName(std::string_view name) {
    return std::string(name).append(ProfileExtension);
}

std::vector<std::string> ListProfiles(SettingsFiles& files) {
    std::vector<std::string> names = files.names(ProfileExtension);
    for (std::string& name : names) {
        name.resize(name.size() - ProfileExtension.size());
    }
    return names;
}

bool LoadProfile(Settings& settings, SettingsFiles& files, std::string_view name) {
    try {
        const std::string bytes = files.read(profileFileName(name));
        FieldReader reader(bytes);
        for (const SettingKey& setting : ProfileKeys) {
            readSetting(reader, settings, setting);
        }
        readOptionalLines(reader, settings);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void SaveProfile(const Settings& settings, SettingsFiles& files, std::string_view name) {
    if (name.empty()) {
        return;
    }
    std::string bytes;
    for (const SettingKey& setting : ProfileKeys) {
        appendSetting(bytes, settings, setting);
    }
    appendOptionalLines(bytes, settings);
    // The file holds a password.
    files.replace(profileFileName(name), bytes, FileAccess::OwnerOnly);
}

void TrustHost(Settings& settings, SettingsFiles& files, std::string_view name,
               std::string_view fingerprint) {
    settings.profile.TRUSTED = fingerprint;
    // Loaded anew: the current profile may hold changes that nobody has saved.
    Settings stored;
    if (!name.empty() && LoadProfile(stored, files, name)) {
        stored.profile.TRUSTED = fingerprint;
        SaveProfile(stored, files, name);
    }
}

} // namespace quillmark

#include "settings/ProfileFile.h"

#include "base/Failure.h"
#include "settings/FieldReader.h"
#include "settings/SettingKeys.h"

namespace quillmark {

namespace {

constexpr std::string_view ProfileExtension = ".pro";

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
    files.replace(profileFileName(name), bytes, FileAccess::OwnerOnly);
}

} // namespace quillmark

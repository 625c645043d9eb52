#include "settings/SettingValue.h"

#include "settings/Fingerprint.h"
#include "store/FileCategory.h"

#include <charconv>
#include <span>
#include <string>

namespace quillmark {

namespace {

std::string quoted(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

/// The setting with this key, of whichever file. Throws SettingError if there is none.
const SettingKey& requireSetting(std::string_view key) {
    for (const std::span<const SettingKey> keys :
         {std::span<const SettingKey>(ConfigurationKeys), std::span<const SettingKey>(ProfileKeys),
          std::span<const SettingKey>(OptionalProfileKeys)}) {
        if (const SettingKey* const found = findSetting(keys, key)) {
            return *found;
        }
    }
    throw SettingError("there is no setting " + quoted(key));
}

void setValue(std::int16_t& number, std::string_view key, std::string_view value) {
    std::int16_t read = 0;
    const char* const end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, read);
    if (result.ec != std::errc() || result.ptr != end) {
        throw SettingError(std::string(key) + " takes a whole number from -32768 to 32767, not " +
                           quoted(value));
    }
    number = read;
}

void setValue(std::string& text, std::string_view /*key*/, std::string_view value) {
    text = value;
}

void setValue(Rules& rules, std::string_view key, std::string_view value) {
    const auto named = rulesNamed(value);
    if (!named) {
        throw SettingError(std::string(key) + " takes classic or web, not " + quoted(value));
    }
    rules = *named;
}

void setValue(Encryption& encryption, std::string_view key, std::string_view value) {
    const auto named = encryptionNamed(value);
    if (!named) {
        throw SettingError(std::string(key) + " takes none, tls, implicit or sftp, not " +
                           quoted(value));
    }
    encryption = *named;
}

void setValue(ResultList& list, std::string_view /*key*/, std::string_view value) {
    SplitFileMasks(value, list);
}

std::string textOf(std::int16_t number) {
    return std::to_string(number);
}

std::string textOf(const std::string& text) {
    return text;
}

template <typename Choice> std::string textOf(Choice choice) {
    return std::string(nameOf(choice));
}

std::string textOf(const ResultList& list) {
    return JoinFileMasks(list);
}

/// Refuses a value that no check can work with.
void requireSound(const SettingKey& setting, std::string_view value) {
    if (setting.place == ConnectionsPlace) {
        std::int16_t connections = 0;
        setValue(connections, setting.key, value);
        if (connections < 1 || connections > MostConnections) {
            throw SettingError(std::string(setting.key) + " takes a number from 1 to 16, not " +
                               quoted(value));
        }
    }
    if (setting.place == TrustedPlace && !value.empty() && !fingerprintIn(value)) {
        throw SettingError(std::string(setting.key) +
                           " takes a SHA-256 as a refused host shows it, not " + quoted(value));
    }
}

} // namespace

std::string valueText(const Settings& settings, const SettingKey& setting) {
    if (setting.place == PasswordPlace) {
        return settings.profile.USER_PASSWORD.empty() ? "" : "(stored)";
    }
    return std::visit([&](auto place) { return textOf(valueAt(settings, place)); }, setting.place);
}

void setByKey(Settings& settings, std::string_view key, std::string_view value) {
    const SettingKey& setting = requireSetting(key);
    if (setting.place == PasswordPlace) {
        throw SettingError(std::string(key) +
                           " is refused: a password is not taken from the command "
                           "line, where other users of the machine can read it");
    }
    requireSound(setting, value);
    std::visit([&](auto place) { setValue(valueAt(settings, place), key, value); }, setting.place);
    if (setting.place == UserMasksPlace) {
        settings.configuration.fileMasksText =
            JoinFileMasks(settings.configuration.masks.lstFileMasks);
    }
}

} // namespace quillmark

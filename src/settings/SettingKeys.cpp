#include "settings/SettingKeys.h"

#include "base/Failure.h"
#include "settings/Cipher.h"
#include "store/FileCategory.h"

#include <algorithm>

namespace quillmark {

namespace {

void readValue(FieldReader& reader, std::int16_t& number) {
    number = reader.ReadNumberValue();
}

void readValue(FieldReader& reader, std::string& text) {
    text = reader.ReadTextValue();
}

/// Here for the variant alone: no file has this value at a fixed place. Those that have it hold it
/// under its key, which setByKey() reads.
void readValue(FieldReader& reader, Rules& rules) {
    rules = rulesNamed(reader.ReadTextValue()).value_or(rules);
}

void readValue(FieldReader& reader, Encryption& encryption) {
    encryption = encryptionNamed(reader.ReadTextValue()).value_or(encryption);
}

void readValue(FieldReader& reader, ResultList& list) {
    list.Clear();
    const std::int16_t count = reader.ReadNumberValue();
    for (std::int16_t i = 0; i < count; ++i) {
        list.Append(reader.ReadTextValue());
    }
}

/// A save takes the masks from their text, so the text must follow the list even if the file is cut
/// short within it.
void readUserMasks(FieldReader& reader, Configuration& configuration) {
    ResultList& masks = configuration.masks.lstFileMasks;
    try {
        readValue(reader, masks);
    } catch (const Failure&) {
        configuration.fileMasksText = JoinFileMasks(masks);
        throw;
    }
    configuration.fileMasksText = JoinFileMasks(masks);
}

void appendValue(std::string& bytes, const SettingKey& setting, std::int16_t number) {
    appendLine(bytes, setting.key, std::to_string(number));
}

void appendValue(std::string& bytes, const SettingKey& setting, const std::string& text) {
    appendLine(bytes, setting.key, setting.place == PasswordPlace ? EncryptPassword(text) : text);
}

template <typename Choice>
void appendValue(std::string& bytes, const SettingKey& setting, Choice choice) {
    appendLine(bytes, setting.key, nameOf(choice));
}

void appendValue(std::string& bytes, const SettingKey& setting, const ResultList& list) {
    appendLine(bytes, setting.key, std::to_string(list.Count()));
    for (int i = 0; i < list.Count(); ++i) {
        appendLine(bytes, setting.itemKey, list.Line(i));
    }
}

} // namespace

const SettingKey* findSetting(std::span<const SettingKey> keys, std::string_view key) {
    const auto found =
        std::find_if(keys.begin(), keys.end(), [key](const SettingKey& s) { return s.key == key; });
    return found == keys.end() ? nullptr : &*found;
}

void readSetting(FieldReader& reader, Settings& settings, const SettingKey& setting) {
    if (setting.place == PasswordPlace) {
        settings.profile.USER_PASSWORD = DecryptPassword(reader.ReadTextValue());
    } else if (setting.place == UserMasksPlace) {
        readUserMasks(reader, settings.configuration);
    } else {
        std::visit([&](auto place) { readValue(reader, valueAt(settings, place)); }, setting.place);
    }
}

void appendSetting(std::string& bytes, const Settings& settings, const SettingKey& setting) {
    std::visit([&](auto place) { appendValue(bytes, setting, valueAt(settings, place)); },
               setting.place);
}

void appendLine(std::string& bytes, std::string_view key, std::string_view value) {
    bytes.append("#").append(key).append("=").append(value).append("\r\n");
}

} // namespace quillmark

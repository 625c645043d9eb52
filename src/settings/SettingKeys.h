#pragma once

#include "settings/FieldReader.h"
#include "settings/Settings.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace quillmark {

/// Where a setting lives in Settings.
using SettingPlace = std::variant<std::int16_t Configuration::*, std::int16_t Profile::*,
                                  std::string Profile::*, Rules Profile::*, Encryption Profile::*,
                                  ResultList Configuration::*, ResultList CategoryMasks::*>;

/// A setting as the files name it.
struct SettingKey {
    std::string_view key; ///< Without the "#" and "=" around it.
    SettingPlace place;
    std::string_view itemKey = {}; ///< For a list: the key of the item lines behind its count.
};

/// The configuration file behind its first line, in its order.
inline constexpr std::array<SettingKey, 24> ConfigurationKeys = {{
    {"SAVE_DIRECTORY", &Configuration::SAVE_DIRECTORY},
    {"SAVE_FILE", &Configuration::SAVE_FILE},
    {"SAVE_MESSAGES", &Configuration::SAVE_MESSAGES},
    {"SAVE_REFERENCES", &Configuration::SAVE_REFERENCES},
    {"SAVE_UNUSED", &Configuration::SAVE_UNUSED},
    {"SAVE_INVALID", &Configuration::SAVE_INVALID},
    {"SAVE_IGNORED", &Configuration::SAVE_IGNORED},
    {"SAVE_DUPLICATE", &Configuration::SAVE_DUPLICATE},
    {"TRACE_WINDOW", &Configuration::TRACE_WINDOW},
    {"SOUND", &Configuration::SOUND},
    {"CHECK_VERSION", &Configuration::CHECK_VERSION},
    {"LOG_FILE", &Configuration::LOG_FILE},
    {"DEBUG", &Configuration::DEBUG},
    {"FILEMASKS", &CategoryMasks::lstFileMasks, "MASK"},
    {"IGNORE_VALUE", &Configuration::IGNORE_VALUE},
    {"CODE_MASKS", &CategoryMasks::lstCodeMask, "MASK"},
    {"IMAGE_MASKS", &CategoryMasks::lstImageMask, "MASK"},
    {"MULTIMEDIA_MASKS", &CategoryMasks::lstMultimediaMask, "MASK"},
    {"DOCUMENT_MASKS", &CategoryMasks::lstDocumentMask, "MASK"},
    {"ARCHIVE_MASKS", &CategoryMasks::lstArchiveMask, "MASK"},
    {"CHECK_COMMAND", &Configuration::lstCheckCommand, "COMMAND"},
    {"MAKE_ADDITION", &Configuration::lstMakeAddition, "COMMAND"},
    {"CHECK_HTML", &Configuration::lstCheckHTML, "COMMAND"},
    {"IGNORECASE", &Configuration::IGNORECASE},
}};

/// The nineteen lines of every profile file, in their order.
inline constexpr std::array<SettingKey, 19> ProfileKeys = {{
    {"HOST_NAME", &Profile::HOST_NAME},
    {"USER_NAME", &Profile::USER_NAME},
    {"START_PATH", &Profile::START_PATH},
    {"ACCOUNT_NAME", &Profile::ACCOUNT_NAME},
    {"USER_PASSWORD", &Profile::USER_PASSWORD},
    {"GET_STATS", &Profile::GET_STATS},
    {"CHECK_DUPES", &Profile::CHECK_DUPES},
    {"IGNORE_TOPICS", &Profile::IGNORE_TOPICS},
    {"IGNORE_CGI", &Profile::IGNORE_CGI},
    {"CHECK_URL", &Profile::CHECK_URL},
    {"IGNORE_VALUE", &Configuration::IGNORE_VALUE},
    {"MAX_LEVELS", &Profile::MAX_LEVELS},
    {"START_COL", &Profile::START_COL},
    {"END_COL", &Profile::END_COL},
    {"HOST_PORT", &Profile::HOST_PORT},
    {"DISABLE_PASV", &Profile::DISABLE_PASV},
    {"UPPER_LEVELS", &Profile::UPPER_LEVELS},
    {"ROOT_LEVEL", &Profile::ROOT_LEVEL},
    {"HOST_ALIAS", &Profile::HOST_ALIAS},
}};

/// The lines that may follow in a profile file, told apart by their keys. A value has a line only
/// where it differs from that of a new profile, so that a version which knows only the nineteen
/// lines can still read and write all other profiles.
inline constexpr std::array<SettingKey, 7> OptionalProfileKeys = {{
    {"RULES", &Profile::RULES},
    {"SITE_URL", &Profile::SITE_URL},
    {"SITE_ROOT", &Profile::SITE_ROOT},
    {"ENCRYPTION", &Profile::ENCRYPTION},
    {"CONNECTIONS", &Profile::CONNECTIONS},
    {"TRUSTED", &Profile::TRUSTED},
    {"KEY_FILE", &Profile::KEY_FILE},
}};

/// The setting with this key; null if `keys` has none.
const SettingKey* findSetting(std::span<const SettingKey> keys, std::string_view key);

/// The setting that the files hold scrambled.
inline constexpr SettingPlace PasswordPlace = &Profile::USER_PASSWORD;
/// The number that lies between 1 and 16.
inline constexpr SettingPlace ConnectionsPlace = &Profile::CONNECTIONS;
/// The text that is a fingerprint.
inline constexpr SettingPlace TrustedPlace = &Profile::TRUSTED;
/// The list that fileMasksText holds as one text.
inline constexpr SettingPlace UserMasksPlace = &CategoryMasks::lstFileMasks;

/// The value at a place, of a Settings or a const Settings.
template <typename Owner, typename Value>
auto& valueAt(Owner& settings, Value Configuration::*place) {
    return settings.configuration.*place;
}
template <typename Owner, typename Value>
auto& valueAt(Owner& settings, Value CategoryMasks::*place) {
    return settings.configuration.masks.*place;
}
template <typename Owner, typename Value> auto& valueAt(Owner& settings, Value Profile::*place) {
    return settings.profile.*place;
}

/// Reads the next field of a settings file, or the count and the items of a list, into its place,
/// whatever key the file has there. Throws a Failure if that fails; a number or a text then keeps
/// its value, and a list holds the items read so far.
void readSetting(FieldReader& reader, Settings& settings, const SettingKey& setting);

/// Appends the line of a settings file that holds the setting, or the lines of a list.
void appendSetting(std::string& bytes, const Settings& settings, const SettingKey& setting);

/// Appends "#", the key, "=", the value and the end of the line.
void appendLine(std::string& bytes, std::string_view key, std::string_view value);

} // namespace quillmark

#pragma once

#include "settings/Settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// What the controls of the profile dialog hold: texts as bytes, numbers as the text that stands in
/// their box.
struct ProfileFields {
    std::string hostName;
    std::string userName;
    std::string startPath;
    std::string account;
    std::string password; ///< In clear.
    std::string hostAlias;
    std::string depth;
    std::string startColumn;
    std::string endColumn;
    std::string hostPort;
    bool getStats = false;
    bool checkDupes = false;
    bool ignoreTopics = false;
    bool ignoreCgi = false;
    bool checkUrl = false;
    bool ignoreValue = false;
    bool disablePasv = false;
    bool upperLevels = false;
    bool rootLevel = false;
    Rules rules = Rules::Classic;
    std::string siteUrl;
    std::string siteRoot;
    Encryption encryption = Encryption::None;
    std::int16_t connections = 4; ///< 1 to MostConnections.
    std::string trusted;          ///< Shown where it matters; there the user can only clear it.
    std::string keyFile;
    std::vector<std::string> otherLines; ///< Shown nowhere.

    bool operator==(const ProfileFields&) const = default;
};

/// The fields of the current profile, with the configuration's IGNORE_VALUE.
ProfileFields ShowFields(const Settings& settings);

/// The fields of a new profile.
ProfileFields ClearFields();

/// Stores the fields in the current profile and the configuration's IGNORE_VALUE. A number field
/// stands for the number that its text begins with. Throws overflow() and stores nothing if a
/// number does not fit 16 bits.
void StoreFields(const ProfileFields& fields, Settings& settings);

/// Whether the dialog must ask before it gives up its fields: they differ from the current profile,
/// and there is a name to save them under.
bool hasUnsavedChanges(std::string_view name, const ProfileFields& fields,
                       const Settings& settings);

/// Whether a text field holds a comma. It is saved as it stands, but the next load ends the text
/// there and takes the rest for the next field. The password is safe: it is stored scrambled.
bool holdsComma(const ProfileFields& fields);

} // namespace quillmark

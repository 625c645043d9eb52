#include "ui/profile/ProfileFields.h"

#include "base/Numbers.h"
#include "settings/DefaultSettings.h"

#include <algorithm>
#include <array>

namespace quillmark {

namespace {

struct TextField {
    std::string ProfileFields::*shown;
    std::string Profile::*stored;
};
struct NumberField {
    std::string ProfileFields::*shown;
    std::int16_t Profile::*stored;
};
struct FlagField {
    bool ProfileFields::*shown;
    std::int16_t Profile::*stored;
};

constexpr std::array<TextField, 6> Texts = {{
    {&ProfileFields::hostName, &Profile::HOST_NAME},
    {&ProfileFields::userName, &Profile::USER_NAME},
    {&ProfileFields::startPath, &Profile::START_PATH},
    {&ProfileFields::account, &Profile::ACCOUNT_NAME},
    {&ProfileFields::password, &Profile::USER_PASSWORD},
    {&ProfileFields::hostAlias, &Profile::HOST_ALIAS},
}};

constexpr std::array<NumberField, 4> Numbers = {{
    {&ProfileFields::depth, &Profile::MAX_LEVELS},
    {&ProfileFields::startColumn, &Profile::START_COL},
    {&ProfileFields::endColumn, &Profile::END_COL},
    {&ProfileFields::hostPort, &Profile::HOST_PORT},
}};

constexpr std::array<FlagField, 7> Flags = {{
    {&ProfileFields::getStats, &Profile::GET_STATS},
    {&ProfileFields::ignoreTopics, &Profile::IGNORE_TOPICS},
    {&ProfileFields::ignoreCgi, &Profile::IGNORE_CGI},
    {&ProfileFields::checkUrl, &Profile::CHECK_URL},
    {&ProfileFields::disablePasv, &Profile::DISABLE_PASV},
    {&ProfileFields::upperLevels, &Profile::UPPER_LEVELS},
    {&ProfileFields::rootLevel, &Profile::ROOT_LEVEL},
}};

/// The file holds these by key, so that a comma in them does no harm.
constexpr std::array<TextField, 4> TextsByKey = {{
    {&ProfileFields::siteUrl, &Profile::SITE_URL},
    {&ProfileFields::siteRoot, &Profile::SITE_ROOT},
    {&ProfileFields::trusted, &Profile::TRUSTED},
    {&ProfileFields::keyFile, &Profile::KEY_FILE},
}};

std::int16_t flagValue(bool on) {
    return on ? 1 : 0;
}

} // namespace

ProfileFields ShowFields(const Settings& settings) {
    ProfileFields fields;
    for (const TextField& text : Texts) {
        fields.*text.shown = settings.profile.*text.stored;
    }
    for (const TextField& text : TextsByKey) {
        fields.*text.shown = settings.profile.*text.stored;
    }
    for (const NumberField& number : Numbers) {
        fields.*number.shown = std::to_string(settings.profile.*number.stored);
    }
    for (const FlagField& flag : Flags) {
        fields.*flag.shown = settings.profile.*flag.stored == 1;
    }
    fields.checkDupes = settings.profile.CHECK_DUPES != 0;
    fields.ignoreValue = settings.configuration.IGNORE_VALUE == 1;
    fields.rules = settings.profile.RULES;
    fields.encryption = settings.profile.ENCRYPTION;
    fields.connections = settings.profile.CONNECTIONS;
    fields.otherLines = settings.profile.otherLines;
    return fields;
}

ProfileFields ClearFields() {
    Settings fresh;
    fresh.profile = newProfile();
    return ShowFields(fresh);
}

void StoreFields(const ProfileFields& fields, Settings& settings) {
    // A copy: a number that does not fit must leave the current profile as it is.
    Profile profile = settings.profile;
    for (const TextField& text : Texts) {
        profile.*text.stored = fields.*text.shown;
    }
    for (const TextField& text : TextsByKey) {
        profile.*text.stored = fields.*text.shown;
    }
    for (const NumberField& number : Numbers) {
        profile.*number.stored = toInt16(leadingNumber(fields.*number.shown));
    }
    for (const FlagField& flag : Flags) {
        profile.*flag.stored = flagValue(fields.*flag.shown);
    }
    profile.CHECK_DUPES = flagValue(fields.checkDupes);
    profile.RULES = fields.rules;
    profile.ENCRYPTION = fields.encryption;
    profile.CONNECTIONS = fields.connections;
    profile.otherLines = fields.otherLines;
    settings.profile = profile;
    settings.configuration.IGNORE_VALUE = flagValue(fields.ignoreValue);
}

bool hasUnsavedChanges(std::string_view name, const ProfileFields& fields,
                       const Settings& settings) {
    return !name.empty() && fields != ShowFields(settings);
}

bool holdsComma(const ProfileFields& fields) {
    return std::any_of(Texts.begin(), Texts.end(), [&fields](const TextField& text) {
        return text.stored != &Profile::USER_PASSWORD &&
               (fields.*text.shown).find(',') != std::string::npos;
    });
}

} // namespace quillmark

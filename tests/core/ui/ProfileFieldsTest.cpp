#include "ui/profile/ProfileFields.h"

#include "base/Failure.h"
#include "settings/DefaultSettings.h"
#include "ui/profile/FieldNotes.h"
#include "ui/profile/NameCompletion.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quillmark::test {
namespace {

TEST(ProfileFields, ComeBackAsTheyWereStored) {
    ProfileFields fields = ClearFields();
    std::tie(fields.hostName, fields.userName, fields.startPath, fields.account, fields.password,
             fields.hostAlias, fields.depth, fields.startColumn, fields.endColumn, fields.hostPort,
             fields.siteUrl, fields.siteRoot, fields.trusted, fields.keyFile) =
        std::make_tuple("host", "user", "\\a\xE4", "acct", "p,w", "alias", "-3", "1", "2", "8021",
                        "https://a/", "\\r", "SHA256:x", "/k,");
    fields.getStats = fields.ignoreTopics = fields.checkUrl = fields.disablePasv =
        fields.rootLevel = true;
    fields.checkDupes = fields.ignoreCgi = fields.ignoreValue = fields.upperLevels = false;
    std::tie(fields.rules, fields.encryption, fields.connections) =
        std::make_tuple(Rules::Web, Encryption::Sftp, 16);
    fields.otherLines = {"#FUTURE=1"};
    Settings settings;
    settings.configuration.IGNORE_VALUE = 1;
    StoreFields(fields, settings);
    EXPECT_EQ(ShowFields(settings), fields);
    EXPECT_EQ(settings.configuration.IGNORE_VALUE, 0);
    EXPECT_EQ(settings.profile.CHECK_URL, 1);
}

TEST(ProfileFields, StoreAllOrNothing) {
    Settings settings;
    settings.profile = newProfile();
    ProfileFields fields = ClearFields();
    fields.hostName = "new";
    fields.hostPort = "70000";
    EXPECT_THROW(StoreFields(fields, settings), Failure);
    EXPECT_EQ(settings.profile, newProfile());
}

TEST(ProfileFields, AreUnsavedWhenOneDiffersAndThereIsAName) {
    Settings settings;
    settings.profile = newProfile();
    ProfileFields fields = ClearFields();
    EXPECT_FALSE(hasUnsavedChanges("site", fields, settings));
    fields.hostPort = "021"; // The same number, another text.
    EXPECT_TRUE(hasUnsavedChanges("site", fields, settings));
    EXPECT_FALSE(hasUnsavedChanges("", fields, settings));
}

TEST(ProfileFields, TellOfACommaOutsideThePassword) {
    ProfileFields fields;
    fields.password = "a,b";
    EXPECT_FALSE(holdsComma(fields));
    fields.hostAlias = "a,b";
    EXPECT_TRUE(holdsComma(fields));
}

TEST(FieldNotes, TellOfNumbersThatAreNotSavedAsTyped) {
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"21", ""},
        {"0", ""},
        {"-1", ""},
        {"32767", ""},
        {"", "\"\" is no whole number and is saved as 0"},
        {"-", "\"-\" is no whole number and is saved as 0"},
        {"2 levels", "\"2 levels\" is no whole number and is saved as 2"},
        {"2.5", "\"2.5\" is no whole number and is saved as 2"},
        {"70000", "\"70000\" cannot be saved: a number lies between -32768 and 32767"}};
    for (const auto& [text, note] : rows) {
        EXPECT_EQ(numberNote(text), note);
    }
}

TEST(NameCompletion, FindsTheFirstLongerNameInTheOrderOfTheList) {
    const std::vector<std::string> names = {"alpha", "MySite", "my", "mysite2", "\xC3\x84pfel"};
    const std::vector<std::pair<const char*, std::optional<std::size_t>>> rows = {
        {"my", 1}, {"MYSITE", 3}, {"mysite2", {}}, {"site", {}},    {"", {}},
        {"A", 0},  {"alpha", {}}, {"alphas", {}},  {"\xC3\xA4p", 4}};
    for (const auto& [typed, found] : rows) {
        EXPECT_EQ(completion(names, typed), found) << typed;
    }
}

} // namespace
} // namespace quillmark::test

#include "settings/SettingValue.h"

#include "settings/SettingKeys.h"
#include "store/FileMasks.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

using testing::HasSubstr;

TEST(SetByKey, SetsEveryKindOfValue) {
    Settings settings;
    setByKey(settings, "MAX_LEVELS", "-32768");
    setByKey(settings, "IGNORE_VALUE", "1");
    setByKey(settings, "HOST_ALIAS", "a, =b");
    setByKey(settings, "CHECK_HTML", "html,,asp");
    setByKey(settings, "FILEMASKS", ".dot,x");
    EXPECT_EQ(settings.profile.MAX_LEVELS, -32768);
    EXPECT_EQ(settings.configuration.IGNORE_VALUE, 1);
    EXPECT_EQ(settings.profile.HOST_ALIAS, "a, =b");
    EXPECT_EQ(JoinFileMasks(settings.configuration.lstCheckHTML), "HTML,ASP");
    EXPECT_EQ(JoinFileMasks(settings.configuration.masks.lstFileMasks), ".DOT,X");
    EXPECT_EQ(settings.configuration.fileMasksText, ".DOT,X");
}

TEST(SetByKey, SetsOneValuePerKey) {
    std::string lines;
    Settings settings;
    for (const SettingKey& setting : ConfigurationKeys) {
        setByKey(settings, setting.key, "7");
        appendSetting(lines, settings, setting);
        setByKey(settings, setting.key, "8");
    }
    EXPECT_THAT(lines, testing::Not(HasSubstr("8")));
}

struct RefusalRow {
    const char* name;
    const char* key;
    const char* value;
    const char* reason;
};

class RefusalTest : public testing::TestWithParam<RefusalRow> {};

TEST_P(RefusalTest, SaysWhy) {
    Settings settings;
    try {
        setByKey(settings, GetParam().key, GetParam().value);
        FAIL() << "not refused";
    } catch (const SettingError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().reason));
        EXPECT_EQ(settings.profile, Profile());
    }
}

const std::vector<RefusalRow> RefusalRows = {
    {"Word", "MAX_LEVELS", "abc",
     "MAX_LEVELS takes a whole number from -32768 to 32767, not \"abc\""},
    {"Empty", "MAX_LEVELS", "", "not \"\""},
    {"Fraction", "MAX_LEVELS", "1.5", "whole number"},
    {"Blank", "MAX_LEVELS", " 1", "whole number"},
    {"TooLarge", "HOST_PORT", "70000", "to 32767"},
    {"Unknown", "FOO", "1", "there is no setting \"FOO\""},
    {"LowerCase", "debug", "1", "there is no setting \"debug\""},
    {"Password", "USER_PASSWORD", "secret", "other users of the machine can read it"}};

INSTANTIATE_TEST_SUITE_P(Values, RefusalTest, testing::ValuesIn(RefusalRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace quillmark

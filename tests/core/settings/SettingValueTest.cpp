#include "settings/SettingValue.h"

#include "settings/SettingKeys.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

std::string refusal(std::string_view key, std::string_view value) {
    Settings settings;
    try {
        setByKey(settings, key, value);
        return "none";
    } catch (const SettingError& error) {
        EXPECT_EQ(settings.profile, Profile());
        return error.what();
    }
}

TEST(SetByKey, SetsOneValuePerKey) {
    Settings settings;
    std::string lines;
    for (const SettingKey& setting : ConfigurationKeys) {
        setByKey(settings, setting.key, "7");
        appendSetting(lines, settings, setting);
        setByKey(settings, setting.key, "8");
    }
    EXPECT_THAT(lines, testing::Not(testing::HasSubstr("8")));
    setByKey(settings, "HOST_ALIAS", "a, =b");
    setByKey(settings, "MAX_LEVELS", "-32768");
    setByKey(settings, "FILEMASKS", ",.dot,,x,");
    EXPECT_EQ(settings.profile.HOST_ALIAS, "a, =b");
    EXPECT_EQ(settings.profile.MAX_LEVELS, -32768);
    EXPECT_EQ(settings.configuration.masks.lstFileMasks.Line(1), "X");
    EXPECT_EQ(settings.configuration.fileMasksText, ".DOT,X");
    setByKey(settings, "RULES", "web");
    setByKey(settings, "SITE_URL", "https://x.example/");
    for (const char* name : {"none", "tls", "implicit", "sftp"}) {
        setByKey(settings, "ENCRYPTION", name);
        EXPECT_EQ(nameOf(settings.profile.ENCRYPTION), name);
    }
    setByKey(settings, "CONNECTIONS", "16");
    EXPECT_EQ(settings.profile.CONNECTIONS, 16);
    EXPECT_EQ(settings.profile.RULES, Rules::Web);
    EXPECT_EQ(settings.profile.SITE_URL, "https://x.example/");
}

TEST(SetByKey, SaysWhyItRefuses) {
    for (const char* value : {"abc", "", "1.5", " 1", "70000"}) {
        EXPECT_EQ(refusal("HOST_PORT", value),
                  std::string("HOST_PORT takes a whole number from -32768 to 32767, not \"") +
                      value + "\"");
    }
    EXPECT_EQ(refusal("RULES", "Web"), "RULES takes classic or web, not \"Web\"");
    EXPECT_EQ(refusal("ENCRYPTION", "ssl"),
              "ENCRYPTION takes none, tls, implicit or sftp, not \"ssl\"");
    for (const char* value : {"0", "17", "-1"}) {
        EXPECT_EQ(refusal("CONNECTIONS", value),
                  std::string("CONNECTIONS takes a number from 1 to 16, not \"") + value + "\"");
    }
    EXPECT_THAT(refusal("TRUSTED", "yes"), testing::HasSubstr("SHA-256"));
    EXPECT_EQ(refusal("debug", "1"), "there is no setting \"debug\"");
    EXPECT_THAT(refusal("USER_PASSWORD", "secret"), testing::HasSubstr("other users"));
}

} // namespace
} // namespace quillmark

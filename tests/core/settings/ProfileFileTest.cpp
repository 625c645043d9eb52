#include "settings/ProfileFile.h"

#include "platform/ProgramFolder.h"
#include "settings/DefaultSettings.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

using testing::ElementsAre;

const std::string Texts = "#HOST_NAME=h\r\n#USER_NAME=u\r\n#START_PATH=/www/i.htm\r\n"
                          "#ACCOUNT_NAME=\r\n";
const std::string Numbers =
    "#GET_STATS=1\r\n#CHECK_DUPES=0\r\n#IGNORE_TOPICS=0\r\n#IGNORE_CGI=0\r\n#CHECK_URL=0\r\n"
    "#IGNORE_VALUE=1\r\n#MAX_LEVELS=-2\r\n#START_COL=33\r\n#END_COL=43\r\n#HOST_PORT=2121\r\n"
    "#DISABLE_PASV=0\r\n#UPPER_LEVELS=0\r\n#ROOT_LEVEL=1\r\n";

class ProfileFileTest : public testing::Test {
protected:
    ProfileFileTest() {
        settings.profile = newProfile();
        settings.profile.HOST_NAME = "h";
        settings.profile.USER_NAME = "u";
        settings.profile.START_PATH = "/www/i.htm";
        settings.profile.USER_PASSWORD = "6";
        settings.profile.GET_STATS = 1;
        settings.profile.MAX_LEVELS = -2;
        settings.profile.HOST_PORT = 2121;
        settings.profile.ROOT_LEVEL = 1;
        settings.profile.HOST_ALIAS = "www.h.org";
        settings.configuration.IGNORE_VALUE = 1;
    }

    test::TempFolder folder;
    ProgramFolder files{folder.path().string()};
    Settings settings;
    Settings loaded;
};

TEST_F(ProfileFileTest, KeepsWhatWasSaved) {
    SaveProfile(settings, files, "my.site");
    EXPECT_EQ(folder.read("my.site.pro"),
              Texts + "#USER_PASSWORD==K\r\n" + Numbers + "#HOST_ALIAS=www.h.org\r\n");
    EXPECT_EQ(std::filesystem::status(folder.path() / "my.site.pro").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_TRUE(LoadProfile(loaded, files, "my.site"));
    EXPECT_EQ(loaded.profile, settings.profile);
    EXPECT_EQ(loaded.configuration.IGNORE_VALUE, 1);
}

TEST_F(ProfileFileTest, AreListedByName) {
    SaveProfile(settings, files, "b");
    SaveProfile(settings, files, "B.x");
    folder.write("b.prof", "");
    SaveProfile(settings, files, "");
    EXPECT_THAT(ListProfiles(files), ElementsAre("B.x", "b"));
}

TEST_F(ProfileFileTest, CommaShiftsEveryLaterField) {
    settings.profile.HOST_NAME = "h, x";
    settings.profile.USER_PASSWORD = "";
    SaveProfile(settings, files, "site");
    settings.profile.ACCOUNT_NAME = "=K";
    SaveProfile(settings, files, "site");
    EXPECT_TRUE(LoadProfile(loaded, files, "site"));
    EXPECT_EQ(loaded.profile.HOST_NAME, "h");
    EXPECT_EQ(loaded.profile.USER_NAME, "x");
    EXPECT_EQ(loaded.profile.START_PATH, "u");
    EXPECT_EQ(loaded.profile.USER_PASSWORD, "6");
    EXPECT_EQ(loaded.profile.GET_STATS, 0);
    EXPECT_EQ(loaded.profile.HOST_ALIAS, "1");
}

struct LoadRow {
    const char* name;
    std::string bytes;
    bool whole;
    const char* startPath;
    const char* password;
    int endColumn;
    int port;
};

class LoadProfileTest : public ProfileFileTest, public testing::WithParamInterface<LoadRow> {};

TEST_P(LoadProfileTest, KeepsTheFieldsNotReached) {
    loaded.profile.START_PATH = "old";
    loaded.profile.USER_PASSWORD = "old";
    loaded.profile.HOST_PORT = 7;
    folder.write("site.pro", GetParam().bytes);
    EXPECT_EQ(LoadProfile(loaded, files, "site"), GetParam().whole);
    EXPECT_EQ(loaded.profile.START_PATH, GetParam().startPath);
    EXPECT_EQ(loaded.profile.USER_PASSWORD, GetParam().password);
    EXPECT_EQ(loaded.profile.END_COL, GetParam().endColumn);
    EXPECT_EQ(loaded.profile.HOST_PORT, GetParam().port);
}

const std::string LargePort = std::string(Numbers).replace(Numbers.find("2121"), 4, "70000");
const std::vector<LoadRow> LoadRows = {
    {"EmptyPassword", Texts + "#USER_PASSWORD=\r\n" + Numbers + "#HOST_ALIAS=", true, "/www/i.htm",
     "", 43, 2121},
    {"FourLines", Texts, false, "/www/i.htm", "old", 0, 7},
    {"PasswordThatNoScramblingGives", Texts + "#USER_PASSWORD=12\r\n" + Numbers, false,
     "/www/i.htm", "old", 0, 7},
    {"PortTooLarge", Texts + "#USER_PASSWORD==K\r\n" + LargePort, false, "/www/i.htm", "6", 43, 7},
    {"Rubbish", std::string("\"\0\xFE\n\n\n", 6), false, "old", "old", 0, 7}};

INSTANTIATE_TEST_SUITE_P(Files, LoadProfileTest, testing::ValuesIn(LoadRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ProfileFileTest, MissingChangesNothing) {
    loaded = settings;
    EXPECT_FALSE(LoadProfile(loaded, files, "nobody"));
    EXPECT_EQ(loaded.profile, settings.profile);
}

} // namespace
} // namespace quillmark

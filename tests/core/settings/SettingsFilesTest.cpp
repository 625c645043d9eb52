#include "settings/ConfigurationFile.h"

#include "base/Failure.h"
#include "platform/ProgramFolder.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "store/FileCategory.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <tuple>

namespace quillmark {
namespace {

/// The default file, with LF for CR LF, up to the user-defined masks and behind them.
const std::string Flags = "#QUILLMARK=3.5.0\n#SAVE_DIRECTORY=1\n#SAVE_FILE=1\n#SAVE_MESSAGES=0\n"
                          "#SAVE_REFERENCES=1\n#SAVE_UNUSED=1\n#SAVE_INVALID=1\n#SAVE_IGNORED=1\n"
                          "#SAVE_DUPLICATE=1\n#TRACE_WINDOW=0\n#SOUND=0\n#CHECK_VERSION=0\n"
                          "#LOG_FILE=0\n#DEBUG=0\n";
const std::string Lists =
    "#IGNORE_VALUE=1\n#CODE_MASKS=3\n#MASK=HTML\n#MASK=HTM\n#MASK=MAP\n#IMAGE_MASKS=3\n#MASK=JPEG\n"
    "#MASK=JPG\n#MASK=GIF\n#MULTIMEDIA_MASKS=6\n#MASK=WAV\n#MASK=MID\n#MASK=MIDI\n#MASK=RAM\n"
    "#MASK=MOV\n#MASK=AVI\n#DOCUMENT_MASKS=2\n#MASK=DOC\n#MASK=TXT\n#ARCHIVE_MASKS=3\n#MASK=ARJ\n"
    "#MASK=RAR\n#MASK=ZIP\n#CHECK_COMMAND=4\n#COMMAND=SRC\n#COMMAND=HREF\n#COMMAND=BACKGROUND\n"
    "#COMMAND=VALUE\n#MAKE_ADDITION=3\n#COMMAND=HTTP:\n#COMMAND=FTP:\n#COMMAND=MAILTO:\n"
    "#CHECK_HTML=2\n#COMMAND=HTML\n#COMMAND=HTM\n#IGNORECASE=0\n";

std::string withCarriageReturns(const std::string& lines) {
    std::string bytes;
    for (const char c : lines) {
        bytes += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return bytes;
}

const std::string DefaultFile = withCarriageReturns(Flags + "#FILEMASKS=0\n" + Lists);

struct SettingsFilesTest : testing::Test {
    /// A start of the program with the configuration file that is there.
    void start() {
        settings = {};
        messages.clear();
        SetDefaultSettings(settings);
        ReadConfigurations(settings, files, [this](auto text) { messages.emplace_back(text); });
    }
    void startWith(std::string_view bytes) {
        folder.write("Quillmark.ini", bytes);
        start();
    }
    /// What loading a profile of these bytes makes of an old one.
    std::string load(std::string_view bytes) {
        Profile& profile = settings.profile;
        profile.START_PATH = profile.USER_PASSWORD = "old";
        profile.HOST_PORT = 7;
        folder.write("site.pro", bytes);
        const std::string extent = LoadProfile(settings, files, "site") ? " whole" : " part";
        return profile.START_PATH + " " + profile.USER_PASSWORD + " " +
               std::to_string(profile.HOST_PORT) + extent;
    }
    std::string file() const { return folder.read("Quillmark.ini"); }

    test::TempFolder folder;
    ProgramFolder files{folder.path().string()};
    Settings settings;
    Configuration& configuration = settings.configuration;
    std::vector<std::string> messages;
};

TEST_F(SettingsFilesTest, ConfigurationKeepsWhatWasSaved) {
    start();
    EXPECT_EQ(file(), DefaultFile) << "written where there was none";
    EXPECT_EQ(settings.profile, newProfile());
    EXPECT_EQ(configuration.IGNORECASE, 1);
    configuration.SOUND = configuration.DEBUG = 1;
    configuration.IGNORECASE = 0;
    configuration.fileMasksText = "class,,.dot, x";
    configuration.lstCheckHTML.Append("ASP");
    SaveConfigurations(settings, files);
    const std::string saved = file();

    start();
    EXPECT_EQ(configuration.SOUND, 1);
    EXPECT_EQ(configuration.IGNORECASE, 1) << "the value of DEBUG";
    EXPECT_EQ(configuration.fileMasksText, "CLASS,.DOT, X");
    EXPECT_EQ(JoinFileMasks(configuration.lstCheckHTML), "HTML,HTM,ASP");
    SaveConfigurations(settings, files);
    EXPECT_EQ(file(), saved);
    ProgramFolder nowhere((folder.path() / "missing").string());
    EXPECT_THROW(ReadConfigurations(settings, nowhere, [](std::string_view) {}), Failure);
}

TEST_F(SettingsFilesTest, ConfigurationOfAnotherVersionIsReadAndOfAnotherPrefixIsReset) {
    startWith(
        withCarriageReturns("#QUILLMARK=1.0.0" + Flags.substr(16) + "#FILEMASKS=-2\n" + Lists));
    EXPECT_THAT(file(), testing::HasSubstr("#FILEMASKS=-2")) << "read whole, so not written";
    EXPECT_EQ(configuration.IGNORECASE, 0);
    startWith("#ANOTHER=3.5.0\r\n#SAVE_DIRECTORY=0\r\n");
    EXPECT_THAT(messages, testing::ElementsAre("Your configuration file is from an older version "
                                               "of Quillmark\r\nSettings will be reset"));
    EXPECT_EQ(JoinFileMasks(configuration.lstCheckHTML), "HTML,HTM,HTML,HTM") << "doubled";
    EXPECT_THAT(file(), testing::StartsWith(withCarriageReturns(Flags)));
    EXPECT_THAT(file(), testing::HasSubstr("#CHECK_HTML=4\r\n"));
}

TEST_F(SettingsFilesTest, DamagedConfigurationIsRewrittenWithWhatWasRead) {
    const std::string later = "#IMAGE_MASKS=0\n#MULTIMEDIA_MASKS=0\n#DOCUMENT_MASKS=0\n"
                              "#ARCHIVE_MASKS=0\n#CHECK_COMMAND=0\n#MAKE_ADDITION=0\n"
                              "#CHECK_HTML=0\n#IGNORECASE=0\n";
    const std::string code = Flags + "#FILEMASKS=0\n#IGNORE_VALUE=1\n#CODE_MASKS=";
    const std::string rest = Flags.substr(Flags.find("#SAVE_REF")) + "#FILEMASKS=0\n" + Lists;
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"", Flags + "#FILEMASKS=0\n" + Lists},
        {Flags + "#FILEMASKS=2\n#MASK=A\n",
         Flags + "#FILEMASKS=1\n#MASK=A\n#IGNORE_VALUE=1\n#CODE_MASKS=0\n" + later},
        {code + "3\n#MASK=Q\n", code + "1\n#MASK=Q\n" + later},
        {"#QUILLMARK=\n" + std::string("\0\xFF\x1A\"\0,", 6) + "-1,-32769",
         "#QUILLMARK=3.5.0\n#SAVE_DIRECTORY=0\n#SAVE_FILE=-1\n#SAVE_MESSAGES=0\n" + rest}};
    for (const auto& [lines, rewritten] : rows) {
        startWith(withCarriageReturns(lines));
        EXPECT_EQ(file(), withCarriageReturns(rewritten));
        EXPECT_THAT(messages, testing::IsEmpty());
    }
}

TEST_F(SettingsFilesTest, ConfigurationCutAnywhereIsRewrittenAsAFileThatReadsWhole) {
    for (std::size_t length = 1; length <= DefaultFile.find("#IGNORECASE"); ++length) {
        startWith(std::string_view(DefaultFile).substr(0, length));
        ASSERT_EQ(messages.size(), length < 11 ? 1 : 0) << length;
        const std::string rewritten = file();
        ASSERT_THAT(rewritten, testing::EndsWith("\r\n#IGNORECASE=0\r\n")) << length;
        const auto written = std::filesystem::last_write_time(folder.path() / "Quillmark.ini");
        start();
        ASSERT_EQ(file(), rewritten) << length;
        ASSERT_EQ(std::filesystem::last_write_time(folder.path() / "Quillmark.ini"), written);
    }
}

/// A profile file, up to its password and behind it.
const std::string Texts = "#HOST_NAME=h\r\n#USER_NAME=u\r\n#START_PATH=/i\r\n"
                          "#ACCOUNT_NAME=\r\n#USER_PASSWORD=";
const std::string Numbers =
    "\r\n#GET_STATS=1\r\n#CHECK_DUPES=2\r\n#IGNORE_TOPICS=3\r\n#IGNORE_CGI=4\r\n#CHECK_URL=5\r\n"
    "#IGNORE_VALUE=6\r\n#MAX_LEVELS=-7\r\n#START_COL=8\r\n#END_COL=9\r\n#HOST_PORT=21\r\n"
    "#DISABLE_PASV=11\r\n#UPPER_LEVELS=12\r\n#ROOT_LEVEL=13\r\n";

TEST_F(SettingsFilesTest, ProfileKeepsWhatWasSaved) {
    const std::string bytes = Texts + "=K" + Numbers + "#HOST_ALIAS=a\r\n";
    folder.write("site.pro", bytes);
    EXPECT_TRUE(LoadProfile(settings, files, "site"));
    const Profile& loaded = settings.profile;
    EXPECT_EQ(
        std::tie(loaded.HOST_NAME, loaded.USER_NAME, loaded.START_PATH, loaded.ACCOUNT_NAME,
                 loaded.USER_PASSWORD, loaded.GET_STATS, loaded.CHECK_DUPES, loaded.IGNORE_TOPICS,
                 loaded.IGNORE_CGI, loaded.CHECK_URL, configuration.IGNORE_VALUE, loaded.MAX_LEVELS,
                 loaded.START_COL, loaded.END_COL, loaded.HOST_PORT, loaded.DISABLE_PASV,
                 loaded.UPPER_LEVELS, loaded.ROOT_LEVEL, loaded.HOST_ALIAS),
        std::make_tuple("h", "u", "/i", "", "6", 1, 2, 3, 4, 5, 6, -7, 8, 9, 21, 11, 12, 13, "a"));
    SaveProfile(settings, files, "my.site");
    EXPECT_EQ(folder.read("my.site.pro"), bytes);
    EXPECT_EQ(std::filesystem::status(folder.path() / "my.site.pro").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    folder.write("b.prof", "");
    SaveProfile(settings, files, "");
    EXPECT_THAT(ListProfiles(files), testing::ElementsAre("my.site", "site"));
}

TEST_F(SettingsFilesTest, ProfileKeepsTheFieldsNotReachedAndMovesThoseBehindAComma) {
    EXPECT_FALSE(LoadProfile(settings, files, "site")) << "no such file";
    EXPECT_EQ(load(Texts.substr(0, Texts.find("#USER_P"))), "/i old 7 part");
    EXPECT_EQ(load(Texts + "12" + Numbers), "/i old 7 part") << "no scrambling gives 12";
    EXPECT_EQ(load(Texts + "=K" + Numbers.substr(0, Numbers.find("\r\n#DIS")) + "0000"),
              "/i 6 7 part");
    EXPECT_EQ(load(std::string("\"\0\xFE\n\n\n", 6)), "old old 7 part");
    EXPECT_EQ(load(Texts + Numbers + "#HOST_ALIAS="), "/i  21 whole");
    const std::string comma = "#HOST_NAME=h, x\r\n#USER_NAME=u\r\n#START_PATH=s\r\n";
    EXPECT_EQ(load(comma + "#ACCOUNT_NAME==K\r\n#USER_PASSWORD=" + Numbers), "u 6 9 whole");
}

TEST_F(SettingsFilesTest, ProfileHoldsOptionalLinesOnlyWhereTheyDiffer) {
    const std::string nineteen = Texts + "=K" + Numbers + "#HOST_ALIAS=a\r\n";
    struct Row {
        const char* name;
        std::string lines;
        std::string saved;
        Rules rules = Rules::Classic;
        std::string url = {};
        std::string root = {};
    };
    const std::vector<Row> rows = {
        {"none", "", ""},
        {"web", "#RULES=web\r\n", "#RULES=web\r\n", Rules::Web},
        {"default values", "#RULES=classic\r\n#SITE_URL=\r\n", ""},
        {"any order, commas, line ends", "#SITE_ROOT=\\w\n#SITE_URL=https://a/b,c\n#RULES=web",
         "#RULES=web\r\n#SITE_URL=https://a/b,c\r\n#SITE_ROOT=\\w\r\n", Rules::Web, "https://a/b,c",
         "\\w"},
        {"of a later version", "#FUTURE=1,\"2\"\r\n#RULES=web\r\n#NEW_2=\r\n",
         "#RULES=web\r\n#FUTURE=1,\"2\"\r\n#NEW_2=\r\n", Rules::Web},
        {"unknown rules", "#RULES=strict\r\n", "#RULES=strict\r\n"},
        {"an encrypted host", "#ENCRYPTION=sftp\r\n#CONNECTIONS=16\r\n#KEY_FILE=/k,\"1\"\r\n",
         "#ENCRYPTION=sftp\r\n#CONNECTIONS=16\r\n#KEY_FILE=/k,\"1\"\r\n"},
        {"its default values", "#ENCRYPTION=none\r\n#CONNECTIONS=4\r\n#TRUSTED=\r\n#KEY_FILE=\r\n",
         ""},
        {"none that could be used", "#ENCRYPTION=ssh\r\n#CONNECTIONS=0\r\n#TRUSTED=all\r\n",
         "#ENCRYPTION=ssh\r\n#CONNECTIONS=0\r\n#TRUSTED=all\r\n"},
        {"no optional line", "x\r\n\r\n# a=b\r\n#=c\r\n#RULES\r\n#HOST_NAME=moved\r\n", ""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        settings.profile.RULES = Rules::Web; // Of the profile that was loaded before.
        settings.profile.otherLines = {"#OLD=1"};
        folder.write("site.pro", nineteen + row.lines);
        ASSERT_TRUE(LoadProfile(settings, files, "site"));
        EXPECT_EQ(settings.profile.RULES, row.rules);
        EXPECT_EQ(settings.profile.SITE_URL, row.url);
        EXPECT_EQ(settings.profile.SITE_ROOT, row.root);
        EXPECT_EQ(settings.profile.HOST_ALIAS, "a");
        SaveProfile(settings, files, "site");
        EXPECT_EQ(folder.read("site.pro"), nineteen + row.saved);
    }
}

TEST_F(SettingsFilesTest, TrustingAHostChangesNothingElseInTheFile) {
    folder.write("site.pro", Texts + "=K" + Numbers + "#HOST_ALIAS=a\r\n#NEW=1\r\n");
    settings.profile.HOST_ALIAS = "of the run";
    TrustHost(settings, files, "site", "SHA256:x");
    EXPECT_EQ(settings.profile.TRUSTED, "SHA256:x");
    EXPECT_EQ(settings.profile.HOST_ALIAS, "of the run");
    EXPECT_EQ(folder.read("site.pro"),
              Texts + "=K" + Numbers + "#HOST_ALIAS=a\r\n#TRUSTED=SHA256:x\r\n#NEW=1\r\n");
    TrustHost(settings, files, "", "SHA256:x");
    EXPECT_THAT(ListProfiles(files), testing::ElementsAre("site"));
}

TEST_F(SettingsFilesTest, ProfileMovedByACommaIsSavedAsNineteenLines) {
    folder.write("site.pro", "#HOST_NAME=h,x\r\n" + Texts.substr(Texts.find("#USER_N")) + Numbers +
                                 "#HOST_ALIAS=a\r\n#RULES=web\r\n");
    LoadProfile(settings, files, "site");
    SaveProfile(settings, files, "site");
    const std::string saved = folder.read("site.pro");
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'), 20);
    EXPECT_THAT(saved, testing::EndsWith("\r\n#RULES=web\r\n"));
}

} // namespace
} // namespace quillmark

#include "settings/ConfigurationFile.h"

#include "base/Failure.h"
#include "platform/ProgramFolder.h"
#include "settings/DefaultSettings.h"
#include "store/FileMasks.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

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

/// A start of the program with this configuration file.
class ConfigurationFileTest : public testing::Test {
protected:
    void start() {
        settings = {};
        SetDefaultSettings(settings);
        ReadConfigurations(settings, files,
                           [this](std::string_view text) { messages.emplace_back(text); });
    }
    void startWith(std::string_view bytes) {
        folder.write("Quillmark.ini", bytes);
        start();
    }
    std::string file() const { return folder.read("Quillmark.ini"); }

    test::TempFolder folder;
    ProgramFolder files{folder.path().string()};
    Settings settings;
    Configuration& configuration = settings.configuration;
    std::vector<std::string> messages;
};

TEST_F(ConfigurationFileTest, MissingIsWrittenWithTheDefaults) {
    start();
    EXPECT_EQ(file(), DefaultFile);
    EXPECT_EQ(settings.profile, newProfile());
    EXPECT_EQ(configuration.IGNORECASE, 1);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(ConfigurationFileTest, KeepsWhatWasSaved) {
    start();
    configuration.SOUND = 1;
    configuration.DEBUG = 1;
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
}

TEST_F(ConfigurationFileTest, OfAnotherVersionIsRead) {
    startWith(
        withCarriageReturns("#QUILLMARK=1.0.0" + Flags.substr(16) + "#FILEMASKS=-2\n" + Lists));
    EXPECT_THAT(file(), HasSubstr("#FILEMASKS=-2")) << "read whole, so not written";
    EXPECT_EQ(configuration.IGNORECASE, 0);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(ConfigurationFileTest, WithoutThePrefixIsResetToDoubledLists) {
    startWith("#ANOTHER=3.5.0\r\n#SAVE_DIRECTORY=0\r\n");
    EXPECT_THAT(messages, ElementsAre("Your configuration file is from an older version of "
                                      "Quillmark\r\nSettings will be reset"));
    EXPECT_THAT(file(), StartsWith(withCarriageReturns(
                            Flags + "#FILEMASKS=0\n#IGNORE_VALUE=1\n#CODE_MASKS=6\n#MASK=HTML\n"
                                    "#MASK=HTM\n#MASK=MAP\n#MASK=HTML\n#MASK=HTM\n#MASK=MAP\n")));
    EXPECT_THAT(file(), HasSubstr("#CHECK_HTML=4\r\n"));
}

const std::string LaterListsEmpty =
    "#IMAGE_MASKS=0\n#MULTIMEDIA_MASKS=0\n#DOCUMENT_MASKS=0\n#ARCHIVE_MASKS=0\n#CHECK_COMMAND=0\n"
    "#MAKE_ADDITION=0\n#CHECK_HTML=0\n#IGNORECASE=0\n";

struct DamageRow {
    const char* name;
    std::string lines;
    std::string rewritten;
};

class DamagedConfigurationTest : public ConfigurationFileTest,
                                 public testing::WithParamInterface<DamageRow> {};

TEST_P(DamagedConfigurationTest, IsRewrittenWithWhatWasRead) {
    startWith(withCarriageReturns(GetParam().lines));
    EXPECT_EQ(file(), withCarriageReturns(GetParam().rewritten));
    EXPECT_THAT(messages, IsEmpty());
}

const std::vector<DamageRow> DamageRows = {
    {"Empty", "", Flags + "#FILEMASKS=0\n" + Lists},
    {"UserMasksCutShort", Flags + "#FILEMASKS=3\n#MASK=A\n#MASK=B\n",
     Flags + "#FILEMASKS=2\n#MASK=A\n#MASK=B\n#IGNORE_VALUE=1\n#CODE_MASKS=0\n" + LaterListsEmpty},
    {"CodeMasksCutShort", Flags + "#FILEMASKS=0\n#IGNORE_VALUE=1\n#CODE_MASKS=3\n#MASK=Q\n",
     Flags + "#FILEMASKS=0\n#IGNORE_VALUE=1\n#CODE_MASKS=1\n#MASK=Q\n" + LaterListsEmpty},
    {"FlagTooLarge", "#QUILLMARK=3.5.0\n#SAVE_DIRECTORY=2\n#SAVE_FILE=-32769\n",
     "#QUILLMARK=3.5.0\n#SAVE_DIRECTORY=2\n" + Flags.substr(Flags.find("#SAVE_FILE")) +
         "#FILEMASKS=0\n" + Lists},
    {"BinaryRubbish", "#QUILLMARK=\n" + std::string("\0\xFF\x1A\"\0,", 6) + "-1,\x80",
     "#QUILLMARK=3.5.0\n#SAVE_DIRECTORY=0\n#SAVE_FILE=-1\n#SAVE_MESSAGES=0\n" +
         Flags.substr(Flags.find("#SAVE_REFERENCES")) + "#FILEMASKS=0\n" + Lists}};

INSTANTIATE_TEST_SUITE_P(Files, DamagedConfigurationTest, testing::ValuesIn(DamageRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ConfigurationFileTest, CutAnywhereIsRewrittenAsAFileThatReadsWhole) {
    for (std::size_t length = 1; length <= DefaultFile.find("#IGNORECASE"); ++length) {
        messages.clear();
        startWith(std::string_view(DefaultFile).substr(0, length));
        ASSERT_EQ(messages.size(), length < 11 ? 1 : 0) << length;
        const std::string rewritten = file();
        ASSERT_THAT(rewritten, EndsWith("\r\n#IGNORECASE=0\r\n")) << length;
        const auto written = std::filesystem::last_write_time(folder.path() / "Quillmark.ini");
        start();
        ASSERT_EQ(file(), rewritten) << length;
        ASSERT_EQ(std::filesystem::last_write_time(folder.path() / "Quillmark.ini"), written);
    }
}

TEST_F(ConfigurationFileTest, ThatCannotBeWrittenFails) {
    ProgramFolder nowhere((folder.path() / "missing").string());
    EXPECT_THROW(ReadConfigurations(settings, nowhere, [](std::string_view) {}), Failure);
}

} // namespace
} // namespace quillmark

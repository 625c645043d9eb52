#include "store/FileMasks.h"

#include "core/store/Lists.h"
#include "store/FileCategory.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

struct TextRow {
    const char* name;
    std::string_view text;
    std::vector<std::string> masks;
    std::string_view joined;
};

class FileMasksTest : public testing::TestWithParam<TextRow> {};

TEST_P(FileMasksTest, SplitAndJoined) {
    ResultList masks = listOf({"OLD"});
    SplitFileMasks(GetParam().text, masks);
    EXPECT_EQ(linesOf(masks), GetParam().masks);
    EXPECT_EQ(JoinFileMasks(masks), GetParam().joined);
}

const std::vector<TextRow> TextRows = {
    {"Nothing", "", {}, ""},
    {"OnlyCommas", ",,", {}, ""},
    {"One", "htm", {"HTM"}, "HTM"},
    {"EmptyItems", ",htm,,asp,", {"HTM", "ASP"}, "HTM,ASP"},
    {"BlankBehindComma", ".htm, .gif", {".HTM", " .GIF"}, ".HTM, .GIF"}};

INSTANTIATE_TEST_SUITE_P(Texts, FileMasksTest, testing::ValuesIn(TextRows),
                         [](const auto& row) { return row.param.name; });

struct NameRow {
    const char* name;
    std::string_view file;
    std::optional<FileCategory> selected;
    bool matches;
};

class CheckMaskTest : public testing::TestWithParam<NameRow> {};

TEST_P(CheckMaskTest, ComparesExtensions) {
    CategoryMasks masks;
    masks.lstCodeMask = listOf({"HTML", "HTM", "MAP"});
    masks.lstImageMask = listOf({"JPEG", "JPG", "GIF"});
    masks.lstMultimediaMask = listOf({"WAV", "MID"});
    masks.lstDocumentMask = listOf({"DOC", "TXT"});
    masks.lstArchiveMask = listOf({"ARJ", "ZIP"});
    masks.lstFileMasks = listOf({".CLASS", " .DOT", "PL"});
    EXPECT_EQ(subCheckMask(GetParam().file, GetParam().selected, masks), GetParam().matches);
}

const std::vector<NameRow> NameRows = {
    {"NothingSelected", "A.GIF", std::nullopt, false},
    {"AnyFile", "A.XYZ", FileCategory::All, true},
    {"FileWithoutDot", "README", FileCategory::All, true},
    {"Code", "A.MAP", FileCategory::Code, true},
    {"CodeWithoutDot", "HTM", FileCategory::Code, false},
    {"CodeInSmallLetters", "A.htm", FileCategory::Code, false},
    {"Image", "LOGO.GIF", FileCategory::Image, true},
    {"ImageBeforeLastDot", "LOGO.JPEG.TXT", FileCategory::Image, false},
    {"Multimedia", "A.MID", FileCategory::Multimedia, true},
    {"Document", "LOGO.JPEG.TXT", FileCategory::Document, true},
    {"Archive", "A.ZIP", FileCategory::Archive, true},
    {"ArchiveOfAnotherKind", "A.GIF", FileCategory::Archive, false},
    {"UserMaskWithDot", "A.CLASS", FileCategory::UserDefined, true},
    {"UserMaskWithoutDot", "A.PL", FileCategory::UserDefined, true},
    {"UserMaskWithBlank", "A.DOT", FileCategory::UserDefined, false},
    {"UserFileWithoutDot", "PL", FileCategory::UserDefined, false}};

INSTANTIATE_TEST_SUITE_P(Names, CheckMaskTest, testing::ValuesIn(NameRows),
                         [](const auto& row) { return row.param.name; });

TEST(CheckMask, ADotAloneStandsForFilesWithoutOne) {
    CategoryMasks masks;
    masks.lstFileMasks = listOf({"."});
    EXPECT_TRUE(subCheckMask("README", FileCategory::UserDefined, masks));
    EXPECT_FALSE(subCheckMask("README.TXT", FileCategory::UserDefined, masks));
}

} // namespace
} // namespace quillmark


#include "store/FileCategory.h"
#include "support/Lists.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

TEST(CheckMask, ComparesExtensions) {
    CategoryMasks masks;
    masks.lstCodeMask = listOf({"HTML", "HTM"});
    masks.lstImageMask = listOf({"JPEG", "GIF"});
    masks.lstMultimediaMask = listOf({"WAV", "MID"});
    masks.lstDocumentMask = listOf({"DOC", "TXT"});
    masks.lstArchiveMask = listOf({"ARJ", "ZIP"});
    masks.lstFileMasks = listOf({".CLASS", " .DOT", "PL", "."});
    const auto matches = [&](std::string_view name, FileCategory selected) {
        return subCheckMask(name, selected, masks);
    };
    EXPECT_FALSE(subCheckMask("A.GIF", std::nullopt, masks));
    EXPECT_TRUE(matches("README", FileCategory::All));
    EXPECT_TRUE(matches("A.HTM", FileCategory::Code));
    EXPECT_FALSE(matches("A.htm", FileCategory::Code));
    EXPECT_TRUE(matches("LOGO.GIF", FileCategory::Image));
    EXPECT_TRUE(matches("A.MID", FileCategory::Multimedia));
    EXPECT_TRUE(matches("LOGO.JPEG.TXT", FileCategory::Document));
    EXPECT_TRUE(matches("A.ZIP", FileCategory::Archive));
    EXPECT_TRUE(matches("A.CLASS", FileCategory::UserDefined));
    EXPECT_TRUE(matches("A.PL", FileCategory::UserDefined));
    EXPECT_FALSE(matches("A.DOT", FileCategory::UserDefined)) << "the blank belongs to the mask";
    EXPECT_TRUE(matches("PL", FileCategory::UserDefined)) << "a dot alone: files without one";
}

} // namespace
} // namespace quillmark

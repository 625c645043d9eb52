#include "platform/disk/DiskAdapter.h"
#include "base/Failure.h"
#include "base/Paths.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace quillmark::test {
namespace {

using Names = std::vector<std::string>;

TEST(FailureFromError, TellsThatThereIsNoPermission) {
    for (const int error : {EACCES, EPERM, EROFS}) {
        EXPECT_EQ(failureFromError({error, std::system_category()}, pathNotFound()).number(), 70);
    }
}

TEST(DiskAdapter, ListsInByteOrderWithoutHiddenEntriesAndLinks) {
    const TempFolder folder;
    for (const char* name :
         {"b.txt", "a.txt", "Z.txt", ".hidden", "sub/x", "Sub/x", ".git/x", "\xC3\xA9"}) {
        folder.write(name, "");
    }
    std::filesystem::create_symlink("a.txt", folder.path() / "link.txt");
    std::filesystem::create_symlink("sub", folder.path() / "linked");
    const FolderListing listing = DiskAdapter().list(ToBackSlashes(folder.path().string()));
    EXPECT_EQ(listing.folders, (Names{"Sub", "sub"}));
    EXPECT_EQ(listing.files, (Names{"Z.txt", "a.txt", "b.txt", "\xC3\xA9"}));
    EXPECT_THROW(DiskAdapter().list(ToBackSlashes((folder.path() / "none").string())), Failure);
    EXPECT_THROW(DiskAdapter().list(ToBackSlashes((folder.path() / "a.txt").string())), Failure);
}

TEST(DiskAdapter, CopiesInWholeBlocks) {
    const TempFolder folder;
    const std::string target = ToBackSlashes((folder.path() / "copy").string());
    for (const std::size_t size : {0U, 1U, 10U, 1024U, 1025U, 1026U, 65536U, 200000U}) {
        const std::string bytes(size, 'x');
        const auto source = folder.write("source", bytes);
        ASSERT_EQ(DiskAdapter().CopyFileBinary(ToBackSlashes(source.string()), target), 0);
        const std::string copy = folder.read("copy");
        EXPECT_EQ(copy.size(), (size + 1024) / 1025 * 1025) << size;
        EXPECT_EQ(copy.substr(0, size), bytes);
        EXPECT_EQ(copy.find_first_not_of('\0', size), std::string::npos);
    }
}

TEST(DiskAdapter, CopyFindsAnotherSpellingOnlyWhenTheExactOneIsMissing) {
    const TempFolder folder;
    folder.write("Docs/Page.HTM", "mixed");
    folder.write("Docs/PAGE.HTM", "upper");
    const std::string target = ToBackSlashes((folder.path() / "copy").string());
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"Docs/Page.HTM", "mixed"},
        {"docs/page.htm", "upper"}, // The first in byte order.
        {"docs/other.htm", ""},
        {"docs", ""}};
    for (const auto& [asked, found] : rows) {
        const std::string source = ToBackSlashes((folder.path() / asked).string());
        EXPECT_EQ(DiskAdapter().CopyFileBinary(source, target), found.empty() ? 1 : 0) << asked;
        EXPECT_EQ(folder.read("copy").substr(0, 5), found.empty() ? "upper" : found);
    }
}

TEST(DiskAdapter, ReadsAndDeletes) {
    const TempFolder folder;
    DiskAdapter disk;
    const std::string file = ToBackSlashes(folder.write("f", std::string(100'000, 'x')).string());
    std::size_t length = 0;
    disk.read(file, [&length](std::string_view block) { length += block.size(); });
    EXPECT_EQ(length, 100'000U);
    disk.deleteIfThere(file);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "f"));
    disk.deleteIfThere(file);
    disk.read(file, [](std::string_view) { ADD_FAILURE() << "a file that is gone"; });
    folder.write("kept/x", "");
    disk.deleteIfThere(ToBackSlashes((folder.path() / "kept").string()));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "kept" / "x"));
}

} // namespace
} // namespace quillmark::test

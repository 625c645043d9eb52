#include "platform/disk/DiskAdapter.h"
#include "base/Failure.h"
#include "base/Paths.h"
#include "platform/FileDescriptor.h"
#include "platform/disk/StartFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

int copied(DiskAdapter& disk, const fs::path& source, const fs::path& target) {
    return disk.CopyFileBinary(ToBackSlashes(source.string()), ToBackSlashes(target.string()),
                               [] { return true; });
}

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
    fs::create_symlink("a.txt", folder.path() / "link.txt");
    fs::create_symlink("sub", folder.path() / "linked");
    const FolderListing listing = DiskAdapter().list(ToBackSlashes(folder.path().string()));
    EXPECT_EQ(listing.folders, (Names{"Sub", "sub"}));
    EXPECT_EQ(listing.files, (Names{"Z.txt", "a.txt", "b.txt", "\xC3\xA9"}));
    EXPECT_THROW(DiskAdapter().list(ToBackSlashes((folder.path() / "none").string())), Failure);
    EXPECT_THROW(DiskAdapter().list(ToBackSlashes((folder.path() / "a.txt").string())), Failure);
}

TEST(DiskAdapter, CopiesInWholeBlocks) {
    const TempFolder folder;
    const fs::path target = folder.path() / "copy";
    DiskAdapter disk;
    for (const std::size_t size : {0U, 1U, 10U, 1024U, 1025U, 1026U, 65536U, 65600U, 200000U}) {
        const std::string bytes(size, 'x');
        const auto source = folder.write("source", bytes);
        ASSERT_EQ(copied(disk, source, target), 0);
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
    const FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    const fs::path docs = folder.path() / "Docs";
    ASSERT_GE(inotify_add_watch(watch.number(), docs.c_str(), IN_ACCESS | IN_ONLYDIR), 0);
    std::array<char, 65536> readings{};
    const fs::path target = folder.path() / "copy";
    DiskAdapter disk;
    const std::vector<std::pair<std::string, std::string>> rows = {
        {"Docs/Page.HTM", "mixed"},
        {"docs/page.htm", "upper"}, // The first in byte order.
        {"docs/other.htm", ""},
        {"docs", ""}};
    for (const auto& [asked, found] : rows) {
        EXPECT_EQ(copied(disk, folder.path() / asked, target), found.empty() ? 1 : 0);
        EXPECT_EQ(folder.read("copy").substr(0, 5), found.empty() ? "upper" : found) << asked;
    }
    EXPECT_GT(read(watch.number(), readings.data(), readings.size()), 0) << "the watch works";
    folder.write("Docs/New.HTM", "");
    EXPECT_EQ(copied(disk, docs / "new.htm", target), 1);
    EXPECT_LT(read(watch.number(), readings.data(), readings.size()), 0) << "a folder is read once";
    disk.endRun();
    EXPECT_EQ(copied(disk, docs / "new.htm", target), 0);
}

TEST(DiskAdapter, ReadsAndDeletes) {
    const TempFolder folder;
    DiskAdapter disk;
    const std::string file = ToBackSlashes(folder.write("f", std::string(100'000, 'x')).string());
    std::size_t length = 0;
    disk.read(file, [&length](std::string_view block) {
        length += block.size();
        return true;
    });
    EXPECT_EQ(length, 100'000U);
    disk.deleteIfThere(file);
    EXPECT_FALSE(fs::exists(folder.path() / "f"));
    disk.deleteIfThere(file);
    disk.read(file, [](std::string_view /*block*/) {
        ADD_FAILURE() << "a file that is gone";
        return false;
    });
    folder.write("kept/x", "");
    disk.deleteIfThere(ToBackSlashes((folder.path() / "kept").string()));
    EXPECT_TRUE(fs::exists(folder.path() / "kept" / "x"));
}

TEST(DiskAdapter, NeverWritesThroughWhatItFindsInPlaceOfTheCopy) {
    for (const char* place : {"copy", "copy.part"}) {
        for (const std::string kind : {"pipe", "link", "second name"}) {
            SCOPED_TRACE(kind + " at " + place);
            const TempFolder folder;
            const fs::path page = folder.write("page", "new");
            const fs::path kept = folder.write("kept", "kept");
            const fs::path found = folder.path() / place;
            if (kind == "pipe") {
                ASSERT_EQ(mkfifo(found.c_str(), 0600), 0);
            } else if (kind == "link") {
                fs::create_symlink(kept, found);
            } else {
                fs::create_hard_link(kept, found);
            }
            DiskAdapter disk;
            for (int i = 0; i < 3; ++i) {
                EXPECT_EQ(copied(disk, page, folder.path() / "copy"), 0);
            }
            disk.endRun();
            EXPECT_EQ(folder.read("kept"), "kept");
            EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder.path() / "copy")));
            EXPECT_FALSE(fs::exists(folder.path() / "copy.part"));
        }
    }
}

TEST(DiskAdapter, KeepsACopyThatTheUserHasLinked) {
    const TempFolder folder;
    const fs::path target = folder.path() / "copy";
    DiskAdapter disk;
    for (const char* bytes : {"first", "second", "third", "fourth"}) {
        EXPECT_EQ(copied(disk, folder.write("page", bytes), target), 0);
        fs::create_hard_link(target, folder.path() / bytes);
    }
    EXPECT_EQ(folder.read("first").substr(0, 6), std::string("first\0", 6));
    EXPECT_EQ(folder.read("second").substr(0, 6), "second");
}

TEST(DiskAdapter, KeepsACopyWholeUntilTheNextIsWhole) {
    const TempFolder folder;
    const fs::path target = folder.path() / "copy";
    DiskAdapter disk;
    copied(disk, folder.write("page", "short"), target);
    const std::string before = folder.read("copy");
    const std::string page = folder.write("page", std::string(1'000'000, 'x')).string();
    for (const int parts : {3, 100}) {
        int asked = 0;
        const auto goOn = [&] {
            EXPECT_EQ(folder.read("copy"), before);
            return ++asked < parts;
        };
        const bool givenUp = parts == 3;
        EXPECT_EQ(disk.CopyFileBinary(ToBackSlashes(page), ToBackSlashes(target.string()), goOn),
                  givenUp ? 1 : 0);
        EXPECT_EQ(folder.read("copy") == before, givenUp);
    }
}

TEST(StartFile, IsRefusedWhenTheInventoryLeavesItOut) {
    const TempFolder folder;
    folder.write("index.html", "");
    folder.write(".hidden.html", "");
    fs::create_symlink("index.html", folder.path() / "link.html");
    const std::string site = ToBackSlashes((folder.path() / "").string());
    for (const char* name : {"link.html", "LINK.html", ".hidden.html"}) {
        EXPECT_THROW(requireListedStartFile(site + name, Rules::Classic), Failure) << name;
        EXPECT_THROW(requireStartFile(site + name, Rules::Classic), Failure) << name;
        requireStartFile(site + name, Rules::Web);
    }
    requireStartFile(site + "INDEX.html", Rules::Classic);
    EXPECT_THROW(requireStartFile(site + "none.html", Rules::Web), Failure);
    requireListedStartFile(site + "none.html", Rules::Classic);
}

} // namespace
} // namespace quillmark::test

#include "platform/disk/DiskAdapter.h"
#include "base/Failure.h"
#include "base/Paths.h"
#include "platform/FileDescriptor.h"
#include "platform/disk/StartFile.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/wait.h>
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
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "f"));
    disk.deleteIfThere(file);
    disk.read(file, [](std::string_view /*block*/) {
        ADD_FAILURE() << "a file that is gone";
        return false;
    });
    folder.write("kept/x", "");
    disk.deleteIfThere(ToBackSlashes((folder.path() / "kept").string()));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "kept" / "x"));
}

TEST(DiskAdapter, NeverWritesThroughWhatItFindsInPlaceOfTheCopy) {
    for (const char* place : {"copy", "copy.part"}) {
        for (const char* what : {"pipe", "link", "second name"}) {
            SCOPED_TRACE(std::string(what) + " at " + place);
            const TempFolder folder;
            const fs::path page = folder.write("page", "new");
            const fs::path kept = folder.write("kept", "kept");
            const fs::path found = folder.path() / place;
            const std::string kind = what;
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

TEST(DiskAdapter, GivesALongCopyUpWhenToldTo) {
    const TempFolder folder;
    const fs::path target = folder.path() / "copy";
    DiskAdapter disk;
    copied(disk, folder.write("page", "short"), target);
    const std::string page = folder.write("page", std::string(1'000'000, 'x')).string();
    int asked = 0;
    EXPECT_EQ(disk.CopyFileBinary(ToBackSlashes(page), ToBackSlashes(target.string()),
                                  [&asked] { return ++asked < 3; }),
              1);
    EXPECT_EQ(asked, 3) << "of 15 parts";
    EXPECT_EQ(folder.read("copy").substr(0, 5), "short");
}

/// A child copies two pages in turn and tells of each; it is killed in the middle of one.
TEST(DiskAdapter, LeavesAWholeCopyWhenItIsKilled) {
    const TempFolder folder;
    const std::array<fs::path, 2> pages = {folder.write("a", std::string(300'000, 'a')),
                                           folder.write("b", std::string(500'000, 'b'))};
    for (int round = 0; round < 20; ++round) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            DiskAdapter disk;
            for (std::size_t i = 0; write(pipe[1], "x", 1) == 1; ++i) {
                copied(disk, pages.at(i % 2), folder.path() / "copy");
            }
            _exit(0);
        }
        char told = 0;
        for (int i = 0; i < 3 + round; ++i) {
            ASSERT_EQ(read(pipe[0], &told, 1), 1);
        }
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(pipe[0]);
        close(pipe[1]);
        const std::string copy = folder.read("copy");
        const std::size_t length = copy.front() == 'a' ? 300'000 : 500'000;
        EXPECT_EQ(copy.size(), (length + 1024) / 1025 * 1025);
        EXPECT_EQ(copy.find_first_not_of(copy.front()), length);
    }
}

TEST(DiskAdapter, ReadsAFolderOnceForAllOtherSpellings) {
    const TempFolder folder;
    for (int i = 0; i < 50; ++i) {
        folder.write("page" + std::to_string(i), "x");
    }
    const FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(inotify_add_watch(watch.number(), folder.path().c_str(), IN_ACCESS | IN_ONLYDIR), 0);
    DiskAdapter disk;
    int readings = 0;
    for (int i = 0; i < 50; ++i) {
        const fs::path page = folder.path() / ("PAGE" + std::to_string(i));
        EXPECT_EQ(copied(disk, page, folder.path() / "copy"), 0);
        std::array<char, 65536> events{};
        for (auto end = read(watch.number(), events.data(), events.size()); end > 0;
             end = read(watch.number(), events.data(), events.size())) {
            for (long at = 0; at < end;) {
                const auto* event = reinterpret_cast<const inotify_event*>(events.data() + at);
                readings += (event->mask & IN_ISDIR) != 0 ? 1 : 0;
                at += static_cast<long>(sizeof *event + event->len);
            }
        }
    }
    EXPECT_GE(readings, 1) << "the watch sees readings";
    EXPECT_LE(readings, 2);
}

TEST(StartFile, IsRefusedWhenTheInventoryLeavesItOut) {
    const TempFolder folder;
    folder.write("index.html", "");
    folder.write(".hidden.html", "");
    std::filesystem::create_symlink("index.html", folder.path() / "link.html");
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

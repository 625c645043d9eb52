#include "platform/disk/FileMove.h"

#include "base/Failure.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include <sys/resource.h>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;

struct FileMoveTest : testing::Test {
    std::ptrdiff_t entries() const {
        return std::distance(fs::recursive_directory_iterator(folder.path()), {});
    }

    TempFolder folder;
};

TEST_F(FileMoveTest, MovesEveryByteOverAnExistingFileAndKeepsModeAndTime) {
    for (const std::size_t size : {0U, 1U, 65536U, 200001U}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i) {
            bytes[i] = static_cast<char>(i * 31 + i / 251);
        }
        const fs::path source = folder.write("a/source", bytes);
        const fs::path target = folder.write("b/target", "an older, longer file");
        const auto time = fs::last_write_time(source) - std::chrono::hours(1000);
        fs::last_write_time(source, time);
        fs::permissions(source, fs::perms(0646));
        moveFile(source, target);
        EXPECT_EQ(folder.read("b/target"), bytes) << size;
        EXPECT_EQ(fs::last_write_time(target), time);
        EXPECT_EQ(fs::status(target).permissions(), fs::perms(0646));
        EXPECT_EQ(entries(), 3) << "a, b and b/target";
    }
}

TEST_F(FileMoveTest, RefusesWithBothFilesUntouched) {
    folder.write("source", "bytes");
    folder.write("sub/target", "older");
    fs::create_directory_symlink("sub", folder.path() / "linked");
    fs::create_symlink("source", folder.path() / "link");
    fs::create_hard_link(folder.path() / "source", folder.path() / "hard");
    const auto before = entries();
    struct RefusedMove {
        const char* name;
        const char* source;
        const char* target;
        int number;
    };
    for (const RefusedMove& row : {RefusedMove{"SameName", "source", "source", 1003},
                                   {"AnotherSpelling", "source", "sub/../source", 1003},
                                   {"ThroughALinkedFolder", "sub/target", "linked/target", 1003},
                                   {"ItsOwnLink", "source", "link", 1003},
                                   {"ItsHardLink", "source", "hard", 1003},
                                   {"ALink", "link", "sub/target", 1003},
                                   {"AFolder", "sub", "sub2", 1003},
                                   {"OverAFolder", "source", "sub", 1003},
                                   {"IntoNoFolder", "source", "none/target", 76},
                                   {"IntoAFile", "source", "sub/target/x", 76},
                                   {"NoSource", "none", "sub/target", 53}}) {
        SCOPED_TRACE(row.name);
        EXPECT_THAT([&] { moveFile(folder.path() / row.source, folder.path() / row.target); },
                    testing::Throws<Failure>(testing::Property(&Failure::number, row.number)));
        EXPECT_EQ(folder.read("source"), "bytes");
        EXPECT_EQ(folder.read("sub/target"), "older");
        EXPECT_EQ(entries(), before);
    }
}

TEST_F(FileMoveTest, LeavesNothingWhereTheDiskTakesNoMore) {
    const fs::path source = folder.write("source", std::string(100000, 'x'));
    const fs::path target = folder.write("target", "older");
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit little{70000, usual.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &little);
    EXPECT_THROW(moveFile(source, target), Failure);
    setrlimit(RLIMIT_FSIZE, &usual);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(fs::file_size(source), 100000U);
    EXPECT_EQ(folder.read("target"), "older");
    EXPECT_EQ(entries(), 2);
}

TEST_F(FileMoveTest, KeepsAnOriginalThatIsBeingChanged) {
    const fs::path source = folder.write("source", std::string(std::size_t{16} << 20U, 'x'));
    const fs::path target = folder.write("target", "older");
    std::atomic<bool> moved = false;
    std::atomic<int> changes = 0;
    std::thread writer([&] {
        for (auto time = fs::last_write_time(source); !moved; ++changes) {
            std::error_code gone;
            time += std::chrono::seconds(1);
            fs::last_write_time(source, time, gone);
        }
    });
    while (changes == 0) {
        std::this_thread::yield();
    }
    EXPECT_THROW(moveFile(source, target), Failure);
    moved = true;
    writer.join();
    EXPECT_EQ(fs::file_size(source), std::size_t{16} << 20U);
    EXPECT_EQ(folder.read("target"), "older");
    EXPECT_EQ(entries(), 2);
}

} // namespace
} // namespace quillmark::test

#include "platform/ProgramFolder.h"

#include "base/Failure.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <algorithm>

#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {
namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

template <typename Call> int failureNumber(Call call) {
    try {
        call();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return 0;
}

class ProgramFolderTest : public testing::Test {
protected:
    int replaceFailure(std::string_view name) {
        return failureNumber([&] { files.replace(name, "new", FileAccess::Everyone); });
    }
    int readFailure(std::string_view name) {
        return failureNumber([&] { files.read(name); });
    }

    test::TempFolder outer;
    fs::path place = outer.write("in/old.ini", "old").parent_path();
    ProgramFolder files{place.string()};
};

TEST_F(ProgramFolderTest, TakesItsFolderInBackslashForm) {
    std::string spec = place.string();
    std::replace(spec.begin(), spec.end(), '/', '\\');
    ProgramFolder backslashed(spec);
    EXPECT_EQ(backslashed.programFile("a.pro"), spec + "\\a.pro");
    EXPECT_EQ(backslashed.read("old.ini"), "old");
}

TEST_F(ProgramFolderTest, ReplacesAFileAndLeavesNothingBeside) {
    const std::string leftBehind = ".quillmark-" + std::to_string(getpid()) + "-0.tmp";
    outer.write("in/" + leftBehind, "of a program that was killed");
    files.replace("old.ini", std::string(100000, 'x'), FileAccess::Everyone);
    files.replace("new", std::string("a\0b", 3), FileAccess::OwnerOnly);
    EXPECT_EQ(files.read("old.ini"), std::string(100000, 'x'));
    EXPECT_EQ(files.read("new"), std::string("a\0b", 3));
    EXPECT_THAT(files.names(""), ElementsAre(leftBehind, "new", "old.ini"));
}

TEST_F(ProgramFolderTest, ReplacesALinkAndNotItsTarget) {
    outer.write("target", "target");
    fs::create_symlink(outer.path() / "target", place / "link");
    EXPECT_EQ(files.read("link"), "target");
    EXPECT_EQ(replaceFailure("link"), 0);
    EXPECT_EQ(files.read("link"), "new");
    EXPECT_EQ(outer.read("target"), "target");
}

TEST_F(ProgramFolderTest, RefusesWhatItCannotWriteAndLeavesNothing) {
    fs::create_directory(place / "folder");
    EXPECT_EQ(replaceFailure("../out"), 76);
    EXPECT_EQ(replaceFailure("..\\out"), 76);
    EXPECT_EQ(replaceFailure(".."), 1003);
    EXPECT_EQ(replaceFailure(std::string_view("a\0b", 3)), 1003);
    EXPECT_EQ(replaceFailure("folder"), 1003);
    EXPECT_EQ(replaceFailure(std::string(300, 'n')), 1003);
    EXPECT_THAT(files.names(""), ElementsAre("old.ini"));
    EXPECT_FALSE(fs::exists(outer.path() / "out"));
    EXPECT_EQ(replaceFailure(std::string(255, 'n')), 0) << "the longest name there is";
}

TEST_F(ProgramFolderTest, ReadsPlainFilesUpToItsLargestSize) {
    fs::resize_file(place / "old.ini", ProgramFolder::MaximumFileSize);
    EXPECT_EQ(readFailure("old.ini"), 0);
    fs::resize_file(place / "old.ini", ProgramFolder::MaximumFileSize + 1);
    EXPECT_EQ(readFailure("old.ini"), 1003);
    fs::create_directory(place / "folder");
    ASSERT_EQ(mkfifo((place / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(readFailure("folder"), 1003);
    EXPECT_EQ(readFailure("pipe"), 1003);
    EXPECT_EQ(readFailure("missing"), 53);
}

TEST_F(ProgramFolderTest, ListsAndRemovesPlainFiles) {
    for (const char* name :
         {"in/b.pro", "in/\xC3\xA4.pro", "in/B.pro", "in/a.pro.bak", "in/d.pro/x"}) {
        outer.write(name, "");
    }
    EXPECT_THAT(files.names(".pro"), ElementsAre("B.pro", "b.pro", "\xC3\xA4.pro"));
    files.remove("b.pro");
    EXPECT_EQ(failureNumber([&] { files.remove("b.pro"); }), 53);
    EXPECT_THAT(files.names(".pro"), ElementsAre("B.pro", "\xC3\xA4.pro"));
}

TEST_F(ProgramFolderTest, WithoutAFolderFails) {
    for (const fs::path& none : {outer.path() / "missing", place / "old.ini"}) {
        ProgramFolder missing(none.string());
        EXPECT_EQ(failureNumber([&] { missing.replace("a", "", FileAccess::Everyone); }), 76);
        EXPECT_EQ(failureNumber([&] { missing.names(""); }), 76);
        EXPECT_EQ(failureNumber([&] { missing.read("a"); }), 53);
    }
}

} // namespace
} // namespace quillmark

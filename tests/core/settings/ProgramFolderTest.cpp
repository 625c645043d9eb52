#include "platform/ProgramFolder.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {
namespace {

using testing::ElementsAre;
namespace fs = std::filesystem;

auto fails(int number) {
    return testing::Throws<Failure>(testing::Property(&Failure::number, number));
}

auto replacing(ProgramFolder& where, const std::string& name) {
    return [&where, name] { where.replace(name, "new", FileAccess::Everyone); };
}

struct ProgramFolderTest : testing::Test {
    test::TempFolder outer;
    fs::path place = outer.write("in/old.ini", "old").parent_path();
    ProgramFolder files{ToBackSlashes(place.string())};
};

TEST_F(ProgramFolderTest, ReplacesAFileAndLeavesNothingBeside) {
    const std::string leftBehind = ".quillmark-" + std::to_string(getpid()) + "-0.tmp";
    outer.write("in/" + leftBehind, "of a program that was killed");
    files.replace("old.ini", std::string(100000, 'x'), FileAccess::Everyone);
    EXPECT_EQ(files.read("old.ini"), std::string(100000, 'x'));
    outer.write("target", "target");
    fs::create_symlink(outer.path() / "target", place / "link");
    EXPECT_EQ(files.read("link"), "target");
    files.replace("link", std::string("a\0b", 3), FileAccess::OwnerOnly);
    EXPECT_EQ(files.read("link"), std::string("a\0b", 3));
    EXPECT_EQ(outer.read("target"), "target");
    EXPECT_THAT(files.names(""), ElementsAre(leftBehind, "link", "old.ini"));
}

TEST_F(ProgramFolderTest, DeletesWhatKilledProgramsHadBegun) {
    // No system has a process of this number.
    const std::string killed = "in/.quillmark-2147483647-0.tmp";
    const std::string other = ".quillmark-notes.tmp";
    outer.write("in/" + other, "");
    outer.write(killed, "");
    const ProgramFolder next{ToBackSlashes(place.string())};
    EXPECT_THAT(files.names(""), ElementsAre(other, "old.ini"));
    outer.write(killed, "");
    files.replace("old.ini", "", FileAccess::Everyone);
    EXPECT_THAT(files.names(""), ElementsAre(other, "old.ini"));
}

TEST_F(ProgramFolderTest, RefusesWhatItCannotWriteAndLeavesNothing) {
    fs::create_directory(place / "folder");
    EXPECT_THAT(replacing(files, "../out"), fails(76));
    EXPECT_THAT(replacing(files, "..\\out"), fails(76));
    EXPECT_THAT(replacing(files, std::string("a\0b", 3)), fails(1003));
    EXPECT_THAT(replacing(files, "folder"), fails(1003));
    EXPECT_THAT(replacing(files, std::string(300, 'n')), fails(1003));
    EXPECT_THAT(files.names(""), ElementsAre("old.ini"));
    EXPECT_FALSE(fs::exists(outer.path() / "out"));
    replacing(files, std::string(255, 'n'))(); // The longest name there is.
}

TEST_F(ProgramFolderTest, ReadsPlainFilesUpToItsLargestSize) {
    fs::resize_file(place / "old.ini", ProgramFolder::MaximumFileSize);
    EXPECT_EQ(files.read("old.ini").size(), ProgramFolder::MaximumFileSize);
    fs::resize_file(place / "old.ini", ProgramFolder::MaximumFileSize + 1);
    EXPECT_THAT([&] { files.read("old.ini"); }, fails(1003));
    ASSERT_EQ(mkfifo((place / "pipe").c_str(), 0600), 0);
    EXPECT_THAT([&] { files.read("pipe"); }, fails(1003));
    EXPECT_THAT([&] { files.read("missing"); }, fails(53));
}

TEST_F(ProgramFolderTest, ListsAndRemovesPlainFiles) {
    for (const char* name : {"b.pro", "\xC3\xA4.pro", "B.pro", "a.pro.bak", "d.pro/x"}) {
        outer.write(place / name, "");
    }
    EXPECT_THAT(files.names(".pro"), ElementsAre("B.pro", "b.pro", "\xC3\xA4.pro"));
    files.remove("b.pro");
    EXPECT_THAT([&] { files.remove("b.pro"); }, fails(53));
    EXPECT_THAT(files.names(".pro"), ElementsAre("B.pro", "\xC3\xA4.pro"));
}

TEST_F(ProgramFolderTest, WithoutAFolderFails) {
    for (const fs::path& none : {outer.path() / "missing", place / "old.ini"}) {
        ProgramFolder missing(none.string());
        EXPECT_THAT(replacing(missing, "a"), fails(76));
        EXPECT_THAT([&] { missing.names(""); }, fails(76));
        EXPECT_THAT([&] { missing.read("a"); }, fails(53));
    }
}

} // namespace
} // namespace quillmark

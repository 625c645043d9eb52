#include "base/PathParser.h"
#include "base/Paths.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillmark {
namespace {

struct SpecRow {
    const char* name;
    std::string_view spec;
    std::size_t nameStart;
    std::string_view path;
    std::string_view fileName;
    std::string_view extension;
    std::string_view baseName;
    std::string_view hostPath;
};

class PathParserTest : public testing::TestWithParam<SpecRow> {};

TEST_P(PathParserTest, TakesSpecificationApart) {
    const SpecRow& row = GetParam();
    const PathParser parser(row.spec);
    EXPECT_EQ(parser.FileSpec(), row.spec);
    EXPECT_EQ(parser.NameStart(), row.nameStart);
    EXPECT_EQ(parser.Path(), row.path);
    EXPECT_EQ(parser.FileName(), row.fileName);
    EXPECT_EQ(parser.Extension(), row.extension);
    EXPECT_EQ(parser.BaseName(), row.baseName);
    EXPECT_EQ(parser.HostPath(), row.hostPath);
}

const std::vector<SpecRow> FileRows = {
    {"Empty", "", 1, "", "", "", "", ""},
    {"NameOnly", "index.html", 1, "", "index.html", "html", "index", ""},
    {"FolderOnly", "/www/docs/", 11, "/www/docs/", "", "", "", ""},
    {"BothSeparators", R"(a\b/c\d.htm)", 7, R"(a\b/c\)", "d.htm", "htm", "d", ""},
    {"SlashComesLast", R"(a\b/c.htm)", 5, R"(a\b/)", "c.htm", "htm", "c", ""},
    {"BackslashComesLast", R"(a/b\c.htm)", 5, R"(a/b\)", "c.htm", "htm", "c", ""},
    {"TwoDots", "archive.tar.gz", 1, "", "archive.tar.gz", "gz", "archive", ""},
    {"DotInFolder", "site.dir/readme", 10, "site.dir/", "readme", "dir/readme", "readme", ""},
    {"HiddenName", "/.htaccess", 2, "/", ".htaccess", "htaccess", "", ""},
    {"Drive", "C:page.htm", 3, "C:", "page.htm", "htm", "page", ""},
    {"DriveAndFolder", R"(C:\a:b.htm)", 4, R"(C:\)", "a:b.htm", "htm", "a:b", ""}};

const std::vector<SpecRow> AddressRows = {
    {"Page", "scheme://server/dir/a.htm", 21, "scheme://server/dir/", "a.htm", "htm", "a",
     "dir/a.htm"},
    {"ServerOnly", "scheme://server", 10, "scheme://", "server", "", "server", ""},
    {"ServerRoot", "scheme://server/", 17, "scheme://server/", "", "", "", ""},
    {"ThreeSlashes", "a///b", 5, "a///", "b", "", "b", "b"}};

const auto SpecName = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Files, PathParserTest, testing::ValuesIn(FileRows), SpecName);
INSTANTIATE_TEST_SUITE_P(Addresses, PathParserTest, testing::ValuesIn(AddressRows), SpecName);

TEST(PathParserReuse, TakesOneOfItsOwnParts) {
    PathParser parser("/a-long-folder-name/index.html");
    parser.FileSpec(parser.FileName());
    EXPECT_EQ(parser.FileSpec(), "index.html");
    EXPECT_EQ(parser.Path(), "");
}

TEST(Paths, ConvertSeparators) {
    EXPECT_EQ(ToForwardSlashes(R"(a\b/c\)"), "a/b/c/");
    EXPECT_EQ(ToBackSlashes(R"(a\b/c/)"), R"(a\b\c\)");
    EXPECT_EQ(WithTrailingBackslash(R"(C:\site)"), R"(C:\site\)");
    EXPECT_EQ(WithTrailingBackslash(R"(C:\site\)"), R"(C:\site\)");
    EXPECT_EQ(WithTrailingBackslash("/site/"), R"(/site/\)");
}

struct LevelRow {
    const char* name;
    std::string_view directory;
    int level;
};

class StartLevelTest : public testing::TestWithParam<LevelRow> {};

TEST_P(StartLevelTest, CountsSlashesBeforeTheLastCharacter) {
    EXPECT_EQ(StartLevel(GetParam().directory), GetParam().level);
}

const std::vector<LevelRow> LevelRows = {{"Empty", "", 0},
                                         {"Root", "/", 0},
                                         {"OneFolder", "/a/", 1},
                                         {"NoSlashAtTheEnd", "a/b", 1},
                                         {"Two", "/www/docs/", 2},
                                         {"Relative", "docs/a/", 1},
                                         {"Backslashes", R"(\a\b\)", 0}};

INSTANTIATE_TEST_SUITE_P(Directories, StartLevelTest, testing::ValuesIn(LevelRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace quillmark

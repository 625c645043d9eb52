#include "base/PathParser.h"
#include "base/Paths.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillmark {
namespace {

struct SpecRow {
    std::string_view path, fileName, extension, baseName, hostPath;
};

const std::vector<SpecRow> SpecRows = {{"", "", "", "", ""},
                                       {R"(a\b/)", "c.htm", "htm", "c", ""},
                                       {R"(a/b\)", "c.htm", "htm", "c", ""},
                                       {"", "archive.tar.gz", "gz", "archive", ""},
                                       {"site.dir/", "readme", "dir/readme", "readme", ""},
                                       {"/", ".htaccess", "htaccess", "", ""},
                                       {"C:", "page.htm", "htm", "page", ""},
                                       {R"(C:\)", "a:b.htm", "htm", "a:b", ""},
                                       {"scheme://server/dir/", "a.htm", "htm", "a", "dir/a.htm"},
                                       {"scheme://", "server", "", "server", ""},
                                       {"scheme://server/", "", "", "", ""},
                                       {"a///", "b", "", "b", "b"}};

TEST(PathParser, TakesSpecificationsApart) {
    for (const SpecRow& row : SpecRows) {
        const std::string spec = std::string(row.path).append(row.fileName);
        PathParser parser(spec);
        SCOPED_TRACE(parser.FileSpec());
        EXPECT_EQ(parser.NameStart(), row.path.size() + 1);
        EXPECT_EQ(parser.Path(), row.path);
        EXPECT_EQ(parser.FileName(), row.fileName);
        EXPECT_EQ(parser.Extension(), row.extension);
        EXPECT_EQ(parser.BaseName(), row.baseName);
        EXPECT_EQ(parser.HostPath(), row.hostPath);
        parser.FileSpec(parser.FileName());
        EXPECT_EQ(parser.FileSpec(), row.fileName) << "one of its own parts";
    }
}

TEST(Paths, AreConvertedAndMeasured) {
    EXPECT_EQ(ToForwardSlashes(R"(a\b/c\)"), "a/b/c/");
    EXPECT_EQ(ToBackSlashes(R"(a\b/c/)"), R"(a\b\c\)");
    EXPECT_EQ(WithTrailingBackslash(R"(C:\site\)"), R"(C:\site\)");
    EXPECT_EQ(WithTrailingBackslash("/site/"), R"(/site/\)");
    EXPECT_EQ(StartLevel(""), 0);
    EXPECT_EQ(StartLevel("a/b"), 1);
    EXPECT_EQ(StartLevel("/www/docs/"), 2);
    EXPECT_EQ(StartLevel(R"(\a\b\)"), 0);
}

} // namespace
} // namespace quillmark

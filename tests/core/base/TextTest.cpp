#include "base/Failure.h"
#include "base/NameComparison.h"
#include "base/Numbers.h"
#include "base/PathParser.h"
#include "base/Paths.h"
#include "base/Printable.h"
#include "base/UpperCase.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace quillmark {
namespace {

TEST(UpperCase, MapsLettersOfAsciiOnlyInInvalidUtf8) {
    EXPECT_EQ(upperCase("az[`{AZ"), "AZ[`{AZ");
    EXPECT_EQ(upperCase("caf\u00E9.gif"), "CAF\u00C9.GIF");
    EXPECT_EQ(upperCase("\u0131.htm"), "I.HTM") << "shorter in upper case";
    EXPECT_EQ(upperCase("\U00010428a"), "\U00010400A") << "beyond the basic plane";
    EXPECT_EQ(upperCase("\u00E9\xE9z"), "\u00E9\xE9Z") << "valid before invalid";
    EXPECT_EQ(upperCase("a\xC3"), "A\xC3") << "cut short";
    EXPECT_EQ(upperCase("a\xED\xA0\x80"), "A\xED\xA0\x80") << "surrogate";
    std::string result = "longer than the text";
    upperAscii("\u0131z\xE9{", result);
    EXPECT_EQ(result, "\u0131Z\xE9{");
}

std::string generatedName(std::mt19937& random) {
    static const std::vector<std::string_view> pieces = {
        "a", "A", "i", "I", "\u0131", "\u00E9", "\u00C9", "\u212A", "\u00E5", "\xE9", "\xC9", "{"};
    std::string name;
    for (auto length = 1 + random() % 3; length > 0; --length) {
        name += pieces[random() % pieces.size()];
    }
    return name;
}

TEST(NameComparison, AgreesWithUpperCaseOnGeneratedNames) {
    const NameEqual exact(NameComparison::Exact);
    const NameEqual equal(NameComparison::IgnoreCase);
    const NameHash hash(NameComparison::IgnoreCase);
    std::mt19937 random(20);
    int equalButNotSame = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string a = generatedName(random);
        const std::string b = generatedName(random);
        ASSERT_EQ(exact(a, b), a == b) << a << " and " << b;
        ASSERT_EQ(equal(a, b), upperCase(a) == upperCase(b)) << a << " and " << b;
        ASSERT_TRUE(!equal(a, b) || hash(a) == hash(b)) << a << " and " << b;
        equalButNotSame += equal(a, b) && a != b ? 1 : 0;
    }
    EXPECT_GT(equalButNotSame, 100);
}

TEST(Names, ArePrintedWithoutSteeringTheTerminal) {
    struct Row {
        std::string_view text;
        std::size_t columns;
        std::string_view shown;
    };
    constexpr std::size_t All = std::string_view::npos;
    for (const Row& row : {Row{"\x1B[2J\x7F\n", All, R"(\x1B[2J\x7F\x0A)"},
                           {"\xC2\x80\xC2\x9F\xC2\xA0", All, "\\xC2\\x80\\xC2\\x9F\xC2\xA0"},
                           {"a\xE2\x80\xAEgpj.exe", All, "a\\xE2\\x80\\xAEgpj.exe"},
                           {"\xC3\xA4\xC3", All, "\xC3\xA4\\xC3"},
                           {"\xC3\xA4\xC3\xA4\xC3\xA4", 2, "\xC3\xA4\xC3\xA4"},
                           {"\xE4\xB8\xAD\xE6\x96\x87", 3, "\xE4\xB8\xAD"},
                           {"ab\x1B", 5, "ab"}}) {
        EXPECT_EQ(printable(row.text, row.columns), row.shown);
    }
}

TEST(LeadingNumber, EndsAtTheFirstForeignCharacter) {
    for (const auto& [text, number] : std::vector<std::pair<std::string, double>>{{"", 0},
                                                                                  {"  42  ", 42},
                                                                                  {" -3.5x", -3.5},
                                                                                  {"+2-", 2},
                                                                                  {"--2", 0},
                                                                                  {".5", 0.5},
                                                                                  {"5.", 5},
                                                                                  {".", 0},
                                                                                  {"1.5.5", 1.5},
                                                                                  {"1e3", 1},
                                                                                  {"inf", 0}}) {
        EXPECT_EQ(leadingNumber(text), number) << text;
    }
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_THROW(toInt16(leadingNumber(std::string(400, '9'))), Failure);
    EXPECT_THROW(toInt16(leadingNumber("-" + std::string(400, '9'))), Failure);
}

TEST(Numbers, AreRoundedHalvesToEvenAndHeldInTheirField) {
    EXPECT_EQ(toInt16(0.5), 0);
    EXPECT_EQ(toInt16(-1.5), -2);
    EXPECT_EQ(toInt16(2.51), 3);
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_THROW(toInt16(32767.5), Failure);
    EXPECT_THROW(toInt16(-32768.6), Failure);
    EXPECT_EQ(toInt32Held(2.5), 2);
    EXPECT_EQ(toInt32Held(2147483646.7), 2147483647);
    EXPECT_EQ(toInt32Held(9999999999.0), 2147483647);
    EXPECT_EQ(toInt32Held(-9999999999.0), -2147483647);
}

struct PathRow {
    std::string_view path, fileName, extension, baseName, hostPath;
};

const std::vector<PathRow> PathRows = {{"", "", "", "", ""},
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

TEST(PathParser, TakesPathsApart) {
    for (const PathRow& row : PathRows) {
        const std::string path = std::string(row.path).append(row.fileName);
        PathParser parser(path);
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

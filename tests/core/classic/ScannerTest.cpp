#include "classic/scan/Scanner.h"
#include "classic/scan/MapFiles.h"
#include "store/LineIndex.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

/// What the disk hands over at once.
constexpr std::size_t Block = std::size_t{64} * 1025;

class RecordingSink : public ReferenceSink {
public:
    void MakeAddition(std::string_view targetDirectory, std::string_view target,
                      std::string_view reference) override {
        EXPECT_EQ(std::string(targetDirectory) + std::string(target), reference);
        references.emplace_back(reference);
    }
    Lines references;
};

struct ScannerBench : RunBench {
    RecordingSink sink;
    Scanner scanner{context, sink};

    void scan(std::string_view page) {
        program.write("Quillmark.html", page);
        scanner.ParseFile();
    }
};

struct PageCase {
    const char* name;
    std::string page;
    Lines references;
    std::size_t unread = 0; ///< Bytes that no tag was looked for in, if a reference may be there.
};

TEST(Scanner, FindsTheReferencesOfAPage) {
    const std::vector<PageCase> cases = {
        {"CrLfLine", "<img src=\"a.gif\">\r\n", {"a.gif"}},
        {"SplitOverCrLf", "<img\r\n src=\"a.gif\">\r\n", {}},
        {"BareLfJoins", "<img\n src=\"a.gif\">\n\n", {"a.gif"}},
        {"BareLfWithoutEmptyLine", "<a href=\"a.html\">\n<a href=\"b.html\">\n", {}, 36},
        {"LoneCarriageReturns", "<a href=\"a.html\">\r\r<a href=\"b.html\">\r", {"a.html"}, 18},
        {"BehindTheLastPair", "x\r\n<a href=\"a.html\">", {}, 17},
        {"BehindTheLastEmptyLine", "x\n\n<a href=\"a.html\">", {}, 17},
        {"NothingButTheEndIsLost", "<a href=\"a\">\r\n</html>", {"a"}},
        {"FillOfTheCopyIsNoPage", "<a href=\"a\">" + std::string(1012, '\0'), {}, 12},
        {"FileOpensWithBreak", "\n<a href=\"a.html\">\n\n", {"a.html"}},
        {"SingleQuoted", "<a href='page.html'>\r\n", {}},
        {"ValueOfALaterAttribute", "<a href=page.html title=\"t\">\r\n", {"t"}},
        {"OneATag", "<img src=\"a.gif\" lowsrc=\"b.gif\">\r\n", {"a.gif"}},
        {"KeywordOrderNotTagOrder", "<a href=\"h.html\" src=\"s.js\">\r\n", {"s.js"}},
        {"InsideAnotherName", "<table DATASRC=\"d\">\r\n", {"d"}},
        {"LowerAndUpperCase", "<A HREF=\"a\"><a HrEf=\"b\">\r\n", {"a", "b"}},
        {"ValuesAreIgnored", "<input type=\"text\" value=\"Go\">\r\n", {}},
        {"EmptyValue", "<a href=\"\">\r\n", {}},
        {"NoClosingQuote", "<a href=\"a.html>\r\n", {}},
        {"QuoteIsLast", "<a href=\">\r\n", {}},
        {"FurtherOpeningDrops", "<a href=\"a\" <a href=\"b\">\r\n", {"b"}},
        {"StrayClosingBehindATag", "<p> href=\"a\" > href=\"b\">\r\n", {"a", "b"}},
        {"BeforeTheFirstTag", "href=\"a\">\r\n", {}},
        {"UnfinishedTag", "<a href=\"a\">< href=\"b\"\r\n", {"a"}},
        {"CommentsAreNotKnown", "<!-- <a href=\"old.html\"> -->\r\n", {"old.html"}},
        {"HighAndZero", {"<a href=\"\xFC\0x\">\r\n", 16}, {std::string("\xFC\0x", 3)}},
    };
    for (const PageCase& row : cases) {
        SCOPED_TRACE(row.name);
        ScannerBench bench;
        bench.scan(row.page);
        EXPECT_EQ(bench.sink.references, row.references);
        const ReadingFigures& figures = bench.state.reading;
        EXPECT_EQ(figures.bytesUnread, row.unread);
        EXPECT_EQ(figures.pagesCutShort, row.unread > 0 ? 1 : 0);
        EXPECT_EQ(figures.bytes, row.page.substr(0, row.page.find("\0\0", 0, 2)).size());
    }
}

TEST(Scanner, TakesValuesWhereTheyAreNotIgnored) {
    ScannerBench bench;
    bench.settings.configuration.IGNORE_VALUE = 0;
    bench.scan("<input type=\"text\" value=\"Go\">\r\n");
    EXPECT_EQ(bench.sink.references, Lines{"Go"});
}

TEST(Scanner, JoinsBareLineFeedsOverTheBorderOfABlock) {
    const std::string tail = "<a\n href=\"b\">\n\n<a href=\"c\">\r\n";
    for (std::size_t before = 0; before <= tail.size(); ++before) {
        SCOPED_TRACE(before);
        ScannerBench bench;
        bench.scan("<a href=\"a\">\n\n" + std::string(Block - 14 - before, 'x') + tail);
        EXPECT_EQ(bench.sink.references, (Lines{"a", "b", "c"}));
        bench.state.abort = true;
        bench.scanner.ParseFile();
        EXPECT_EQ(bench.sink.references.size(), 3U) << "an aborted run reads no copy";
    }
}

TEST(Scanner, StopEndsAPageAtTheNextBlockOrTag) {
    ScannerBench bench;
    bench.state.localMode = true;
    int yields = 0;
    bench.events.hook = [&] { bench.state.stopped = ++yields == 3; };
    bench.scan(std::string(20 * Block, 'x') + "\r\n");
    EXPECT_EQ(yields, 3);
    bench.state.stopped = false;
    yields = 0;
    bench.scan("<a href=\"a\"><a href=\"b\"><a href=\"c\"><a href=\"d\">\r\n");
    EXPECT_EQ(bench.sink.references, Lines{"a"}) << "one yield for the block, one a bracket";
}

TEST(Scanner, GivesUpALineThatWouldFillTheMemory) {
    ScannerBench bench;
    bench.state.currentFile = "/page.html";
    for (const bool longer : {false, true}) {
        const std::string line = "<a href=\"long\">";
        const auto page = bench.program.write("Quillmark.html", line);
        const auto added = longer ? 1U : 0U;
        std::filesystem::resize_file(page, Scanner::LongestLine + added);
        std::ofstream(page, std::ios::app) << "\r\n<a href=\"next\">\r\n";
        bench.scanner.ParseFile();
    }
    EXPECT_EQ(bench.sink.references, (Lines{"long", "next", "next"}));
    EXPECT_EQ(bench.messages.normals, Lines{"Gave up a line longer than 64 MB in /page.html"});
}

TEST(MapFiles, TakesThePageOfEachRegionLine) {
    RunBench bench;
    bench.site.write("menu.map",
                     "rect /a.html 0,0,10,10\r\ncircle x.html\r\nRECT /b.html 0,0,1,1\r\n"
                     "poly\r\npolygon p.html 1,1");
    bench.lists.FileList.Append(bench.path("menu.map"));
    bench.state.localMode = true;
    LineIndex files(bench.lists.FileList, NameComparison::Exact);
    PageRetrieval retrieval(bench.context, bench.limit, files);
    RecordingSink sink;
    MapFiles maps(bench.context, retrieval, sink);
    EXPECT_EQ(maps.ProcessMapFile(bench.site.path().string() + "/", "menu.map"), 0);
    EXPECT_EQ(sink.references, (Lines{"/a.html", "x.htm", "", "p.html"}));
    EXPECT_EQ(bench.messages.normals.front(), "Parsing Map File " + bench.path("menu.map"));
    EXPECT_TRUE(bench.messages.has("Ignoring Map File Line: RECT /b.html 0,0,1,1"));
    EXPECT_TRUE(bench.messages.has("Parse Map Line:circle x.html"));
    EXPECT_EQ(bench.state.currentFile, bench.path("menu.map"));
}

} // namespace
} // namespace quillmark::test

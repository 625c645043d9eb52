#include "classic/RunParts.h"
#include "classic/inventory/HostInventory.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

struct LineCase {
    const char* name;
    std::string line;
    Lines directories, fileSizes;
    std::int16_t startColumn = 33, endColumn = 43;
};

struct ListingBench : RunBench {
    RunSounds sounds{window, settings.configuration};
    HostInventory inventory{context, limit, sounds};
};

TEST(DirItem, TakesListingLines) {
    const std::vector<LineCase> cases = {
        {"Directory", "drwxr-xr-x 2 www www 4096 Jan 1 12:00 images", {"/www/images/"}, {}},
        {"DirectoryWithSlash", "drwxr-xr-x 2 www www 4096 Jan 1 12:00 a/", {"/www/a/"}, {}},
        {"Dot", "drwxr-xr-x 2 www www 4096 Jan 1 12:00 .", {}, {}},
        {"DotDot", "drwxr-xr-x 2 www www 4096 Jan 1 12:00 ..", {}, {}},
        {"TypeDot", ".rw a file", {}, {}},
        {"TwoCharacters", "-r", {}, {}},
        {"Link", "lrwxrwxrwx 1 www www 4 Jan 1 12:00 a -> b", {}, {}},
        {"File", fileLine("4711", "a.html"), {}, {"/www/a.html000004711"}},
        {"LettersForSize", fileLine("none", "a.html"), {}, {"/www/a.html000000000"}},
        {"HeldAt32Bits", fileLine("9999999999", "a"), {}, {"/www/a2147483647"}},
        {"NameWithBlank", fileLine("7", "my page.html"), {}, {"/www/page.html000000007"}},
        {"NoBlank", "-rwx", {}, {"/www/wx000000000"}},
        {"Total", "total 12", {}, {"/www/12000000000"}},
        {"ColumnsShifted", fileLine("4", "a"), {}, {"/www/a000000004"}, 39, 43},
        {"ColumnsZero", fileLine("4", "a"), {}, {"/www/a000000000"}, 0, 9},
        {"ColumnsReversed", fileLine("4", "a"), {}, {"/www/a000000000"}, 42, 33},
        {"ColumnsBeyond", fileLine("4", "a"), {}, {"/www/a000000000"}, 900, 910},
    };
    for (const LineCase& row : cases) {
        SCOPED_TRACE(row.name);
        ListingBench bench;
        bench.settings.profile.START_COL = row.startColumn;
        bench.settings.profile.END_COL = row.endColumn;
        bench.state.currentDirectory = "/www/";
        bench.inventory.FtpXCtl1_DirItem(row.line);
        EXPECT_EQ(linesOf(bench.lists.DirectoryList), row.directories);
        EXPECT_EQ(linesOf(bench.lists.FileSizes), row.fileSizes);
        EXPECT_EQ(bench.lists.FileList.Count(), bench.lists.FileSizes.Count());
    }
}

TEST(DirItem, LeavesOutPathsThatNoFileSystemTakes) {
    ListingBench bench;
    bench.state.currentDirectory = "/www/";
    for (const std::size_t length : {4091U, 4092U, 60'000U}) {
        const std::string name(length, 'n');
        bench.inventory.FtpXCtl1_DirItem("-rw " + name);
        bench.inventory.FtpXCtl1_DirItem("drw " + name.substr(1));
    }
    EXPECT_EQ(bench.lists.FileList.Count(), 1);
    EXPECT_EQ(bench.lists.FileSizes.Count(), 1);
    EXPECT_EQ(bench.lists.DirectoryList.Count(), 1);
    EXPECT_EQ(bench.lists.FileList.Line(0).size(), HostInventory::LongestPath);
    EXPECT_EQ(bench.messages.normals,
              Lines{"Left out what has a path longer than 4,096 bytes, in /www/"});
}

TEST(LocalFolder, LeavesOutNamesThatWouldReadAsPaths) {
    RunBench bench;
    bench.site.write("site/index.html", "");
    bench.site.write("site/x\\..\\../page.html", "");
    bench.site.write("site/y\\z", "");
    bench.site.write("outside.html", "");
    EXPECT_EQ(bench.runLocal("site/index.html"), RunOutcome::Finished);
    EXPECT_EQ(bench.below(bench.lists.FileList), "/site/index.html");
    EXPECT_EQ(bench.below(bench.lists.DirectoryList), "");
    const std::string left = "Left out " + ToBackSlashes(bench.path("site/"));
    EXPECT_TRUE(bench.messages.has(left + "x\\..\\.. because of the \\ in its name"));
    EXPECT_TRUE(bench.messages.has(left + "y\\z because of the \\ in its name"));
}

struct FullCase {
    Lines names; ///< The list, and the other one of a pair that is told of.
    ResultList ResultLists::*list;
    std::function<void(RunParts&)> write;
    ResultList ResultLists::*from = nullptr; ///< The other list of a pair.
};

std::function<void(RunParts&)> adding(const std::string& reference) {
    return [reference](RunParts& run) {
        const PathParser parser(reference);
        run.resolver.MakeAddition(parser.Path(), parser.FileName(), reference);
    };
}

TEST(ListMaximum, EveryWriterKeepsTheLineThatFillsItsListAndEndsTheRun) {
    using Lists = ResultLists;
    const auto listFile = [](auto& run) { run.inventory.FtpXCtl1_DirItem("-rw x"); };
    const auto listFolder = [](auto& run) { run.inventory.FtpXCtl1_DirItem("drwx x"); };
    const auto retrieve = [](auto& run) { run.retrieval.RetrieveFile(false); };
    const auto unused = [](auto& run) { run.filePasses.checkUnusedFiles(); };
    const auto invalid = [](auto& run) { run.referencePasses.checkReferences(); };
    const auto unreachable = [](auto& run) { run.walk.scanReferencedPages(); };
    const auto web = [](auto& run) {
        run.context.lists.IgnoredReferences.Append("http://site.example/");
        run.context.lists.IgnoredReferencesFrom.Append("x");
        run.referencePasses.checkURLs();
    };
    const std::string from = "Invalid References From List";
    const auto filed = &Lists::ReferenceList;
    const auto filedFrom = &Lists::ReferenceListFrom;
    const auto broken = &Lists::InvalidReferences;
    const auto brokenFrom = &Lists::InvalidReferencesFrom;
    const auto ignored = &Lists::IgnoredReferences;
    const auto ignoredFrom = &Lists::IgnoredReferencesFrom;
    const std::vector<FullCase> cases = {
        {{"File List"}, &Lists::FileList, listFile},
        {{"Directory List"}, &Lists::DirectoryList, listFolder},
        {{"Get File List"}, &Lists::GetFileList, retrieve},
        {{"Unused File List"}, &Lists::UnusedList, unused},
        {{"Invalid References List", from}, broken, invalid, brokenFrom},
        {{"Invalid Reference List", from}, broken, unreachable, brokenFrom},
        {{"Reference List", "Reference From List"}, filed, web, filedFrom},
        {{"Reference List"}, filed, adding("page.html"), filedFrom},
        {{"Ignored References"}, ignored, adding("ftp://x/"), ignoredFrom},
        {{"Ignored References List"}, ignored, adding("#t"), ignoredFrom},
    };
    for (const FullCase& row : cases) {
        SCOPED_TRACE(row.names.front());
        RunBench bench;
        bench.state.localMode = true;
        bench.state.currentFile = bench.site.write("page", "").string();
        bench.lists.FileList.Append(bench.state.currentFile);
        RunSounds sounds(bench.window, bench.settings.configuration);
        RunParts parts(bench.context, sounds);
        parts.references.append("gone.html", "x");
        ResultList& list = bench.lists.*row.list;
        while (list.Count() < ResultList::Maximum - 1) {
            list.Append("y");
            if (row.from != nullptr) {
                (bench.lists.*row.from).Append("x");
            }
        }
        bench.limit.apply(list, "");
        EXPECT_FALSE(bench.state.abort);
        row.write(parts);
        EXPECT_EQ(list.Count(), ResultList::Maximum);
        EXPECT_TRUE(bench.state.abort);
        for (const std::string& name : row.names) {
            EXPECT_TRUE(
                bench.messages.has("Exceeded List Maximum (" + name + ") - List Truncated"));
        }
    }
}

} // namespace
} // namespace quillmark::test

#include "engine/inventory/HostInventory.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

struct LineCase {
    const char* name;
    std::string line;
    Lines directories;
    Lines fileSizes;
};

std::string fileLine(const std::string& size, const std::string& name) {
    std::string line = "-rw-r--r--   1 www      www     ";
    line += std::string(10 - size.size(), ' ') + size + " Jan  1 12:00 " + name;
    return line;
}

const std::vector<LineCase>& lineCases() {
    static const std::vector<LineCase> cases = {
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
    };
    return cases;
}

TEST(DirItem, TakesListingLines) {
    for (const LineCase& row : lineCases()) {
        SCOPED_TRACE(row.name);
        RunBench bench;
        ListLimit limit(bench.messages, bench.state);
        RunSounds sounds(bench.window, bench.settings.configuration);
        HostInventory inventory(bench.context, limit, sounds);
        bench.state.currentDirectory = "/www/";
        inventory.FtpXCtl1_DirItem(row.line);
        EXPECT_EQ(linesOf(bench.lists.DirectoryList), row.directories);
        EXPECT_EQ(linesOf(bench.lists.FileSizes), row.fileSizes);
        EXPECT_EQ(bench.lists.FileList.Count(), bench.lists.FileSizes.Count());
    }
}

TEST(DirItem, ColumnsOutsideOfTheLineGiveNoSize) {
    struct Columns {
        const char* name;
        std::int16_t start;
        std::int16_t end;
        std::string size;
    };
    for (const Columns& row :
         {Columns{"Shifted", 39, 43, "000000004"}, Columns{"Zero", 0, 9, "000000000"},
          Columns{"Reversed", 43, 33, "000000000"}, Columns{"Beyond", 900, 910, "000000000"}}) {
        SCOPED_TRACE(row.name);
        RunBench bench;
        bench.settings.profile.START_COL = row.start;
        bench.settings.profile.END_COL = row.end;
        ListLimit limit(bench.messages, bench.state);
        RunSounds sounds(bench.window, bench.settings.configuration);
        HostInventory inventory(bench.context, limit, sounds);
        inventory.FtpXCtl1_DirItem(fileLine("4", "a"));
        EXPECT_EQ(linesOf(bench.lists.FileSizes), Lines{"a" + row.size});
    }
}

TEST(DirItem, KeepsAppendingBehindTheMaximum) {
    RunBench bench;
    ListLimit limit(bench.messages, bench.state);
    RunSounds sounds(bench.window, bench.settings.configuration);
    HostInventory inventory(bench.context, limit, sounds);
    for (int i = 0; i < ResultList::Maximum - 1; ++i) {
        inventory.FtpXCtl1_DirItem("drwx " + std::to_string(i));
    }
    EXPECT_FALSE(bench.state.abort);
    EXPECT_TRUE(bench.messages.normals.empty());
    inventory.FtpXCtl1_DirItem("drwx last");
    inventory.FtpXCtl1_DirItem("drwx beyond");
    EXPECT_TRUE(bench.state.abort);
    EXPECT_EQ(bench.messages.normals,
              Lines(2, "Exceeded List Maximum (Directory List) - List Truncated"));
    EXPECT_EQ(bench.lists.DirectoryList.Count(), ResultList::Maximum + 1);
}

} // namespace
} // namespace quillmark::test

#include "ui/ReportWriter.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "core/ui/TemporaryFolder.h"
#include "ui/Thousands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace quillmark {
namespace {

/// Everything that a report is written from, and the report.
class ReportWriterTest : public testing::Test {
protected:
    ReportWriterTest() {
        setenv("LC_ALL", "C", 1);
        settings.profile.HOST_NAME = "ftp.site.org";
        settings.profile.START_PATH = "/www/index.html";
    }

    void askForEverything() {
        Configuration& options = settings.configuration;
        for (std::int16_t* flag :
             {&options.SAVE_DIRECTORY, &options.SAVE_FILE, &options.SAVE_REFERENCES,
              &options.SAVE_INVALID, &options.SAVE_IGNORED, &options.SAVE_UNUSED,
              &options.SAVE_DUPLICATE, &options.SAVE_MESSAGES}) {
            *flag = 1;
        }
    }

    void fillLists() {
        lists.DirectoryList.Append("/www/");
        lists.DirectoryList.Append("/www/img/");
        lists.FileList.Append("/www/index.html");
        lists.FileList.Append("/www/img/a.gif");
        ListPair(lists.ReferenceList, lists.ReferenceListFrom)
            .Append("/www/index.html", "(base file)");
        ListPair(lists.ReferenceList, lists.ReferenceListFrom)
            .Append("/www/img/b.gif", "/www/index.html");
        ListPair(lists.InvalidReferences, lists.InvalidReferencesFrom)
            .Append("/www/gone.html", "/a");
        ListPair(lists.IgnoredReferences, lists.IgnoredReferencesFrom).Append("mailto:me", "/a");
        ListPair(lists.IgnoredReferences, lists.IgnoredReferencesFrom).Append("#top", "/bcd");
        lists.UnusedList.Append("/www/img/a.gif");
        lists.DuplicateList.Append("/www/img/a.gif");
        lists.Message.Append("Starting...");
        lists.Message.Append("Quillmark Finished");
    }

    std::string report() const {
        const TemporaryFolder folder;
        std::ofstream(folder / "report.txt")
            << "an older report, which is longer " << std::string(9999, '.');
        WriteReport(folder / "report.txt", lists, settings, run);
        return bytesOf(folder / "report.txt");
    }

    const std::string title = "Quillmark Version " + std::string(ApplicationVersion) +
                              "\r\nResults For ftp.site.org\r\nStart URL /www/index.html\r\n\r\n";
    ResultLists lists;
    Settings settings;
    RunState run;
};

TEST_F(ReportWriterTest, WritesAllSections) {
    askForEverything();
    fillLists();
    EXPECT_EQ(report(), title + "Host Directory Listing\r\n\r\n/www/\r\n/www/img/\r\n"
                                "\r\nHost File Listing (2 Files)\r\n\r\n"
                                "/www/index.html\r\n/www/img/a.gif\r\n"
                                "\r\nReference Listing\r\n\r\n"
                                "(base file)    \t/www/index.html\r\n"
                                "/www/index.html\t/www/img/b.gif\r\n"
                                "\r\nInvalid References Listing\r\n\r\n/a\t/www/gone.html\r\n"
                                "\r\nIgnored References Listing\r\n\r\n"
                                "/a  \tmailto:me\r\n/bcd\t#top\r\n"
                                "\r\nUnused Host Files (1 Files)\r\n\r\n/www/img/a.gif\r\n"
                                "\r\nDuplicate File Listing\r\n\r\n/www/img/a.gif\r\n"
                                "\r\nMessages\r\n\r\nStarting...\r\nQuillmark Finished\r\n");
}

TEST_F(ReportWriterTest, WritesNoneForEmptyLists) {
    askForEverything();
    EXPECT_EQ(report(), title + "Host Directory Listing\r\n\r\n(none)\r\n"
                                "\r\nHost File Listing (0 Files)\r\n\r\n(none)\r\n"
                                "\r\nReference Listing\r\n\r\n(none)\r\n"
                                "\r\nInvalid References Listing\r\n\r\n(none)\r\n"
                                "\r\nIgnored References Listing\r\n\r\n(none)\r\n"
                                "\r\nUnused Host Files (0 Files)\r\n\r\n(none)\r\n"
                                "\r\nDuplicate File Listing\r\n\r\n(none)\r\n"
                                "\r\nMessages\r\n\r\n");
}

TEST_F(ReportWriterTest, LeavesOutWhatIsNotAskedFor) {
    fillLists();
    EXPECT_EQ(report(), title);
    settings.configuration.SAVE_DIRECTORY = 2;
    settings.configuration.SAVE_INVALID = 1;
    EXPECT_EQ(report(), title + "\r\nInvalid References Listing\r\n\r\n/a\t/www/gone.html\r\n");
}

struct TotalsRow {
    const char* name;
    std::int16_t GET_STATS;
    bool complete;
    double hostTotal;
    double unusedTotal;
    std::string_view host;
    std::string_view unused;
};

class ReportTotalsTest : public ReportWriterTest, public testing::WithParamInterface<TotalsRow> {};

TEST_P(ReportTotalsTest, StandInTheHeadings) {
    const TotalsRow& row = GetParam();
    settings.configuration.SAVE_FILE = 1;
    settings.configuration.SAVE_UNUSED = 1;
    settings.profile.GET_STATS = row.GET_STATS;
    run.statisticsComplete = row.complete;
    run.hostByteTotal = row.hostTotal;
    run.unusedByteTotal = row.unusedTotal;
    EXPECT_EQ(report(), title + "\r\nHost File Listing (0 Files" + std::string(row.host) +
                            ")\r\n\r\n(none)\r\n\r\nUnused Host Files (0 Files" +
                            std::string(row.unused) + ")\r\n\r\n(none)\r\n");
}

const std::vector<TotalsRow> TotalsRows = {
    {"Zero", 1, true, 0, 0, " In  Bytes", " In  Bytes"},
    {"Grouped", 1, true, 1234567, 999, " In 1,234,567 Bytes", " In 999 Bytes"},
    {"BeyondThePattern", 1, true, 31e12, 1000, " In 31,000,000,000,000 Bytes", " In 1,000 Bytes"},
    {"NotComplete", 1, false, 1234567, 999, "", ""},
    {"NotAskedFor", 0, true, 1234567, 999, "", ""},
    {"OptionNotOne", 2, true, 1234567, 999, "", ""}};

INSTANTIATE_TEST_SUITE_P(Totals, ReportTotalsTest, testing::ValuesIn(TotalsRows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ReportWriterTest, FailsWithTheReasonOfTheDisk) {
    const auto numberOf = [this](const std::filesystem::path& path) {
        try {
            WriteReport(path, lists, settings, run);
        } catch (const Failure& failure) {
            return failure.number();
        }
        return 0;
    };
    const TemporaryFolder folder;
    EXPECT_EQ(numberOf(folder / "missing/report.txt"), pathNotFound().number());
    EXPECT_EQ(numberOf(folder / ""), diskFailure("").number());
    if (std::filesystem::exists("/dev/full")) {
        EXPECT_EQ(numberOf("/dev/full"), diskFull().number());
    }
}

TEST(PadToColumn, EndsEveryTextWithOneTab) {
    EXPECT_EQ(PadToColumn("ab", 4), "ab  \t");
    EXPECT_EQ(PadToColumn("abcd", 4), "abcd\t");
    EXPECT_EQ(PadToColumn("abcde", 4), "abcde\t");
    EXPECT_EQ(PadToColumn("", 0), "\t");
}

TEST(Thousands, AreGroupedByTheGivenSeparator) {
    EXPECT_EQ(groupedThousands(0.4, '.'), "");
    EXPECT_EQ(groupedThousands(999.6, '.'), "1.000");
    EXPECT_EQ(groupedThousands(123456, '.'), "123.456");
}

TEST(Thousands, FallBackToTheCommaWithoutALocale) {
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(userThousandsSeparator(), ',');
    setenv("LC_ALL", "no_SUCH.locale", 1);
    EXPECT_EQ(userThousandsSeparator(), ',');
}

} // namespace
} // namespace quillmark

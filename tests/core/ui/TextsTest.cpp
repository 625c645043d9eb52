#include "ui/ReportWriter.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "support/Lists.h"
#include "support/TempFolder.h"
#include "ui/HostTrustText.h"
#include "ui/Thousands.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace quillmark {
namespace {

/// Everything that a report is written from, and the report.
struct ReportWriterTest : testing::Test {
    ReportWriterTest() {
        setenv("LC_ALL", "C", 1);
        settings.profile.HOST_NAME = "ftp.site.org";
        settings.profile.START_PATH = "/www/index.html";
    }

    std::string report() const {
        const auto path = folder.write("report.txt", "an older report" + std::string(9999, '.'));
        WriteReport(path, lists, settings, run);
        return folder.read("report.txt");
    }

    const std::string title = "Quillmark Version " + std::string(ApplicationVersion) +
                              "\r\nResults For ftp.site.org\r\nStart URL /www/index.html\r\n\r\n";
    test::TempFolder folder;
    ResultLists lists;
    Settings settings;
    Configuration& options = settings.configuration;
    RunState run;
};

TEST_F(ReportWriterTest, WritesTheSectionsAskedFor) {
    options.SAVE_DIRECTORY = options.SAVE_FILE = options.SAVE_REFERENCES = options.SAVE_INVALID =
        options.SAVE_IGNORED = options.SAVE_UNUSED = options.SAVE_DUPLICATE =
            options.SAVE_MESSAGES = 1;
    lists.DirectoryList = listOf({"/www/", "/www/img/"});
    lists.FileList = listOf({"/www/index.html", "/www/img/a.gif"});
    lists.ReferenceList = listOf({"/www/index.html", "/www/img/b.gif"});
    lists.ReferenceListFrom = listOf({"(base file)", "/www/index.html"});
    lists.InvalidReferences = listOf({"/www/gone.html"});
    lists.InvalidReferencesFrom = listOf({"/a"});
    lists.IgnoredReferences = listOf({"mailto:me", "#top"});
    lists.IgnoredReferencesFrom = listOf({"/a", "/bcd"});
    lists.UnusedList = lists.DuplicateList = listOf({"/www/img/a.gif"});
    lists.Message.Append("Starting...");
    lists.Message.Append("Quillmark Finished");
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
    options = {};
    options.SAVE_DIRECTORY = 2;
    options.SAVE_INVALID = options.SAVE_MESSAGES = 1;
    lists.InvalidReferences.Clear();
    lists.Message.Clear();
    EXPECT_EQ(report(), title + "\r\nInvalid References Listing\r\n\r\n(none)\r\n"
                                "\r\nMessages\r\n\r\n");
}

TEST_F(ReportWriterTest, TellsTotalsInTheHeadings) {
    options.SAVE_FILE = options.SAVE_UNUSED = 1;
    run.unusedByteTotal = 999;
    const auto expectTotals = [this](std::string_view host, std::string_view unused) {
        EXPECT_EQ(report(), title + "\r\nHost File Listing (0 Files" + std::string(host) +
                                ")\r\n\r\n(none)\r\n\r\nUnused Host Files (0 Files" +
                                std::string(unused) + ")\r\n\r\n(none)\r\n");
    };
    settings.profile.GET_STATS = 1;
    expectTotals("", "");
    run.statisticsComplete = true;
    expectTotals(" In  Bytes", " In 999 Bytes");
    run.hostByteTotal = 31e12;
    expectTotals(" In 31,000,000,000,000 Bytes", " In 999 Bytes");
    settings.profile.GET_STATS = 2;
    expectTotals("", "");
}

TEST_F(ReportWriterTest, FailsWithTheReasonOfTheDisk) {
    const auto expectFailure = [this](const std::filesystem::path& path, int number) {
        EXPECT_THAT([&] { WriteReport(path, lists, settings, run); },
                    testing::Throws<Failure>(testing::Property(&Failure::number, number)));
    };
    expectFailure(folder.path() / "missing/report.txt", 76);
    expectFailure(folder.path(), 1003);
    expectFailure("/dev/full", 1002);
}

TEST(Thousands, AreGroupedByACommaWithoutALocale) {
    EXPECT_EQ(groupedThousands(0.4, '.'), "");
    EXPECT_EQ(groupedThousands(999.6, '.'), "1.000");
    EXPECT_EQ(groupedThousands(123456, '.'), "123.456");
    setenv("LC_ALL", "no_SUCH.locale", 1);
    EXPECT_EQ(userThousandsSeparator(), ',');
}

TEST(HostTrustText, ShowsWhatAHostCallsItselfWithoutBeingSteered) {
    HostIdentity identity;
    identity.host = "ftp.site.example:21";
    identity.reason = "certificate has expired";
    identity.names = {"one\n\nEverything is fine.\x1B[2J", std::string(5000, 'x')};
    const std::string text = hostTrustText(identity);
    EXPECT_THAT(
        text, testing::HasSubstr("of ftp.site.example:21 is refused: certificate has expired.\n"));
    EXPECT_THAT(text, testing::HasSubstr("Made out for: one\\x0A\\x0AEverything"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("\x1B")));
    EXPECT_LT(text.size(), 1000U);
    identity.names.assign(12, "name");
    EXPECT_THAT(hostTrustText(identity), testing::HasSubstr("name, name and 2 more\n"));
    identity.names.clear();
    EXPECT_THAT(hostTrustText(identity), testing::HasSubstr("Made out for: nobody\n"));
}

} // namespace
} // namespace quillmark

#include "support/RunFakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace quillmark::test {
namespace {

std::string page(const Lines& references) {
    std::string text;
    for (const std::string& reference : references) {
        text += "<a href=\"" + reference + "\">\r\n";
    }
    return text;
}

struct SiteBench : RunBench {
    SiteBench() {
        site.write("index.html", page({"a/one.html", "gone.html", "pic.gif", "none.gif", "#top",
                                       "a/one.html", "cgi/x.cgi", "http://x/", "gone.html"}));
        site.write("a/one.html", page({"../index.html", "../gone.html", "../pic.gif", "#top"}));
        site.write("pic.gif", "GIF");
        site.write("b/pic.gif", "GIF");
        site.write("orphan.txt", "?");
    }
    void expectFindings() const {
        EXPECT_EQ(below(lists.DirectoryList), "/a/ /b/");
        EXPECT_EQ(below(lists.FileList), "/index.html /orphan.txt /pic.gif /a/one.html /b/pic.gif");
        EXPECT_EQ(below(lists.GetFileList), "/index.html /a/one.html");
        EXPECT_EQ(below(lists.ReferenceList),
                  "/index.html /a/one.html /pic.gif /none.gif /cgi/x.cgi /index.html /pic.gif");
        EXPECT_EQ(lists.ReferenceListFrom.Line(0), "(base file)");
        EXPECT_EQ(below(lists.InvalidReferences), "/gone.html /none.gif /cgi/x.cgi");
        EXPECT_EQ(below(lists.InvalidReferencesFrom), "/a/one.html /index.html /index.html");
        EXPECT_EQ(lists.InvalidReferences.Line(1).data(), lists.ReferenceList.Line(3).data())
            << "a reference is kept once, however long it is";
        EXPECT_EQ(below(lists.IgnoredReferences), "http://x/");
        EXPECT_EQ(below(lists.UnusedList), "/orphan.txt /b/pic.gif");
        EXPECT_EQ(below(lists.DuplicateList), "/pic.gif");
    }
};

TEST(CheckRun, LocalAndRemoteRunsFillAllLists) {
    SiteBench bench;
    bench.settings.profile.CHECK_DUPES = 1;
    bench.settings.profile.IGNORE_TOPICS = 1;
    bench.settings.configuration.SOUND = 1;
    EXPECT_EQ(bench.runLocal(), RunOutcome::Finished);
    bench.expectFindings();
    EXPECT_EQ(bench.window.titles,
              (Lines{"Checking References", "Checking Unused Files", "Checking Topic References",
                     "Checking For Duplicate Invalid References",
                     "Checking for Duplicate Ignored References", "-",
                     "Checking for Duplicate Files", "-"}));
    bench.messages.normals.clear();
    bench.settings.profile.HOST_NAME = "ftp.site.org";
    bench.settings.profile.GET_STATS = 1;
    bench.settings.profile.UPPER_LEVELS = 1;
    EXPECT_EQ(bench.runRemote(), RunOutcome::Finished);
    bench.expectFindings();
    EXPECT_EQ(bench.state.baseUrl, "http://www.site.org/");
    EXPECT_EQ(bench.window.calls, (Lines{"enter", "fastchug", "results", "moo", "leave", "enter",
                                         "engine", "results", "dhombls", "leave"}));
    EXPECT_TRUE(bench.state.statisticsComplete);
    EXPECT_EQ(bench.state.unusedByteTotal, 192 + 1)
        << "two unused files: the sizes of the first two listed";
    EXPECT_FALSE(bench.host.connected());
    bench.messages.normals.resize(6);
    EXPECT_EQ(
        bench.messages.normals,
        (Lines{"Quillmark running in Remote Mode", "Starting...", "Checking For /index.html",
               "Retrieving /index.html", "Getting Directory For /", "Getting Directory For /a/"}));
}

TEST(CheckRun, LocalRunPostsItsMessagesInOrder) {
    RunBench bench;
    bench.site.write("index.html", page({"gone.html", "none.gif", "/x", "index.html"}));
    bench.settings.profile.CHECK_DUPES = 1;
    bench.runLocal();
    const std::string root = bench.path("");
    const std::string start = ToBackSlashes(root);
    EXPECT_EQ(
        bench.messages.normals,
        (Lines{"Quillmark running in Local Mode", "Starting...",
               "Checking For " + start + "index.html", "Getting Directory For " + start,
               "Retrieving " + root + "index.html", "Ignored because of leading /:/x",
               "Retrieve Skipped For " + root + "index.html", "Retrieving " + root + "gone.html",
               "Added " + root + "gone.html To Invalid Reference List",
               "Retrieve Skipped For " + root + "index.html",
               "Added Invalid Reference(2) " + root + "none.gif",
               "Checking Invalid Reference " + root + "gone.html",
               "Checking Invalid Reference " + root + "none.gif", "Checking For Duplicate Files",
               "Quillmark Finished"}));
    EXPECT_EQ(bench.messages.debugs.front(), "Base URL: ");
    EXPECT_EQ(bench.messages.debugs.back(), "Added Invalid Reference(1) " + root + "gone.html");
}

struct EndCase {
    const char* name;
    bool remote;
    RunOutcome outcome;
    std::function<void(SiteBench&)> trouble;
    Lines lastMessages; ///< Before the one that tells the outcome.
};

TEST(CheckRun, EndsAsItsTroubleAsksFor) {
    using enum RunOutcome;
    const auto noHost = [](SiteBench& b) { b.host.refuses = true; };
    const auto noPage = [](SiteBench& b) { b.host.lostAt = "/a/one.html"; };
    const auto noListing = [](SiteBench& b) { b.host.lostAt = "/a/"; };
    const auto noStart = [](SiteBench& b) { std::filesystem::remove(b.path("index.html")); };
    const auto tooFarUp = [](SiteBench& b) { b.site.write("a/one.html", page({"../x"})); };
    const auto noMemory = [](SiteBench& b) { b.events.hook = [] { throw std::bad_alloc(); }; };
    const std::string gone = "Unable to locate Start File - Aborting";
    const std::vector<EndCase> cases = {
        {"NoHost", true, Aborted, noHost, {"Unable to connect", "Checking For /index.html", gone}},
        {"StartFileRefused", true, Aborted, noStart, {"Unable to retrieve start file", gone}},
        {"StartFileNotListed", false, Aborted, noStart, {"Unable to read start file"}},
        {"PageLost", true, Failed, noPage, {"An Error Has Occurred (Connection lost(1099))"}},
        {"ListingLost", true, Finished, noListing, {}},
        {"TooFarUpOnTheHost", true, Failed, tooFarUp, {errorMessage(invalidProcedureCall())}},
        {"NoMemory", false, Failed, noMemory, {"An Error Has Occurred (Out of memory(7))"}},
        {"TooFarUpOnTheDisk", false, Finished, tooFarUp, {}},
    };
    for (const EndCase& row : cases) {
        SCOPED_TRACE(row.name);
        SiteBench bench;
        row.trouble(bench);
        EXPECT_EQ(row.remote ? bench.runRemote() : bench.runLocal(), row.outcome);
        Lines last = row.lastMessages;
        if (row.outcome != Failed) {
            last.emplace_back(row.outcome == Finished ? "Quillmark Finished" : "Quillmark Aborted");
        }
        const Lines& all = bench.messages.normals;
        ASSERT_GE(all.size(), last.size());
        EXPECT_TRUE(std::equal(last.rbegin(), last.rend(), all.rbegin())) << all.back();
        EXPECT_EQ(bench.window.calls, row.outcome == Finished ? (Lines{"enter", "results", "leave"})
                                                              : (Lines{"enter", "leave"}));
        EXPECT_THAT(bench.window.titles, testing::Contains("-")) << "the progress window is open";
        EXPECT_FALSE(bench.state.abort || bench.state.statisticsComplete);
    }
}

TEST(CheckRun, StopInTheWalkAborts) {
    SiteBench bench;
    bench.settings.profile.IGNORE_CGI = 1;
    bench.settings.profile.IGNORE_TOPICS = 1;
    bench.settings.profile.CHECK_DUPES = 1;
    bench.messages.onPost = [&bench](std::string_view text) {
        if (text.starts_with("Retrieving") && text.ends_with("one.html")) {
            bench.run.stop();
        }
    };
    EXPECT_EQ(bench.runLocal(), RunOutcome::Aborted);
    EXPECT_TRUE(bench.messages.has("Stopping Quillmark...Please Wait"));
    EXPECT_EQ(bench.messages.normals.back(), "Quillmark Aborted");
    EXPECT_EQ(bench.lists.UnusedList.Count(), 0);
    EXPECT_EQ(bench.window.titles, (Lines{"Checking References", "Checking Unused Files",
                                          "Checking for CGI Files", "-"}));
    EXPECT_EQ(bench.runLocal(), RunOutcome::Aborted) << "the flag of one run does not end the next";
    bench.messages.onPost = [](std::string_view) {};
    EXPECT_EQ(bench.runLocal(), RunOutcome::Finished);
}

TEST(CheckRun, StopInTheMiddleOfAPageAborts) {
    SiteBench bench;
    bench.site.write("a/one.html", std::string(1'000'000, 'x'));
    int yields = 0;
    bench.messages.onPost = [&](std::string_view text) {
        if (text.ends_with("one.html") && text.starts_with("Retrieving")) {
            bench.events.hook = [&] {
                if (++yields == 2) {
                    bench.run.stop();
                }
            };
        }
    };
    EXPECT_EQ(bench.runLocal(), RunOutcome::Aborted);
    EXPECT_LT(yields, 10) << "of 15 blocks to copy and 15 to scan";
    EXPECT_EQ(bench.below(bench.lists.GetFileList), "/index.html");
    EXPECT_EQ(bench.lists.InvalidReferences.Count(), 0) << "a page cut short is not invalid";
    EXPECT_THAT(bench.program.read("Quillmark.html"), testing::StartsWith("<a href"))
        << "the page before is kept whole";
    bench.events.hook = [] {};
    bench.messages.onPost = [](std::string_view) {};
    EXPECT_EQ(bench.runLocal(), RunOutcome::Finished);
    EXPECT_FALSE(std::filesystem::exists(bench.program.path() / "Quillmark.html.part"));
}

TEST(CheckRun, ListsDirectoriesWithinTheDepth) {
    const std::map<std::int16_t, std::string> filesOfMaximum = {
        {0, "/www/index.html /www/a/x /www/a/b/y"},
        {1, "/www/index.html"},
        {3, "/www/index.html"},
        {4, "/www/index.html /www/a/x"},
    };
    RunBench bench;
    for (const char* file : {"www/index.html", "www/a/x", "www/a/b/y"}) {
        bench.site.write(file, "");
    }
    for (const auto& [maximum, files] : filesOfMaximum) {
        bench.settings.profile.MAX_LEVELS = maximum;
        bench.runRemote("/www/index.html");
        EXPECT_EQ(bench.below(bench.lists.FileList), files) << maximum;
    }
}

TEST(CheckRun, WrongCaseIsValidAndScannedWhenCaseIsIgnored) {
    RunBench bench;
    bench.site.write("index.html", page({"Sub/PAGE.html"}));
    bench.site.write("sub/page.html", page({"gone.gif"}));
    bench.runLocal();
    EXPECT_EQ(bench.below(bench.lists.InvalidReferences), "/Sub/gone.gif");
    EXPECT_EQ(bench.lists.UnusedList.Count(), 0);
    bench.settings.configuration.IGNORECASE = 0;
    bench.runLocal();
    EXPECT_EQ(bench.below(bench.lists.InvalidReferences), "/Sub/PAGE.html");
    EXPECT_EQ(bench.below(bench.lists.UnusedList), "/sub/page.html");
}

TEST(CheckRun, TheLineThatFillsAListStays) {
    RunBench bench;
    Lines references;
    for (int i = 0; i < ResultList::Maximum + 5; ++i) {
        references.emplace_back("f").append(std::to_string(i));
    }
    bench.site.write("index.html", page(references));
    EXPECT_EQ(bench.runLocal(), RunOutcome::Aborted);
    EXPECT_EQ(bench.lists.ReferenceList.Count(), ResultList::Maximum + 6)
        << "a page is read to its end";
    EXPECT_TRUE(bench.messages.has("Exceeded List Maximum (Reference List) - List Truncated"));
}

TEST(CheckRun, RemovesTheFilesOfAnEarlierRun) {
    RunBench bench;
    bench.site.write("index.html", "");
    bench.program.write("Quillmark.log", "old");
    bench.runLocal();
    EXPECT_FALSE(std::filesystem::exists(bench.program.path() / "Quillmark.log"));
    std::filesystem::remove(bench.program.path() / "Quillmark.html");
    bench.program.write("Quillmark.html/x", "");
    EXPECT_EQ(bench.runLocal(), RunOutcome::Aborted) << "a folder in the working copy's place";
    EXPECT_EQ(bench.messages.normals.back(), "Quillmark Aborted");
}

} // namespace
} // namespace quillmark::test

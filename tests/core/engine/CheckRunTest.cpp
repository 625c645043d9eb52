#include "support/RunFakes.h"

#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

std::string page(const Lines& references) {
    std::string text;
    for (const std::string& reference : references) {
        text += "<a href=\"" + reference + "\">\r\n";
    }
    return text;
}

/// The lines with the site's own folder taken off.
Lines below(const RunBench& bench, const ResultList& list) {
    Lines lines = linesOf(list);
    const std::string root = bench.site.path().string();
    for (std::string& line : lines) {
        if (line.starts_with(root)) {
            line.erase(0, root.size());
        }
    }
    return lines;
}

void writeSite(const RunBench& bench) {
    bench.site.write("index.html", page({"a/one.html", "gone.html", "pic.gif", "none.gif", "#top",
                                         "a/one.html", "cgi/x.cgi", "mailto:x", "gone.html"}));
    bench.site.write("a/one.html", page({"../index.html", "../gone.html", "../pic.gif", "#top"}));
    bench.site.write("pic.gif", "GIF");
    bench.site.write("b/pic.gif", "GIF");
    bench.site.write("orphan.txt", "?");
}

TEST(CheckRun, LocalRunFillsAllLists) {
    RunBench bench;
    writeSite(bench);
    bench.settings.profile.CHECK_DUPES = 1;
    bench.settings.profile.IGNORE_TOPICS = 1;
    EXPECT_EQ(bench.runLocal(), RunOutcome::Finished);
    const ResultLists& lists = bench.lists;
    EXPECT_EQ(below(bench, lists.DirectoryList), (Lines{"/a/", "/b/"}));
    EXPECT_EQ(below(bench, lists.FileList),
              (Lines{"/index.html", "/orphan.txt", "/pic.gif", "/a/one.html", "/b/pic.gif"}));
    EXPECT_EQ(below(bench, lists.GetFileList), (Lines{"/index.html", "/a/one.html"}));
    EXPECT_EQ(below(bench, lists.ReferenceList),
              (Lines{"/index.html", "/a/one.html", "/pic.gif", "/none.gif", "/cgi/x.cgi",
                     "/index.html", "/pic.gif"}));
    EXPECT_EQ(linesOf(lists.ReferenceListFrom).front(), "(base file)");
    EXPECT_EQ(below(bench, lists.InvalidReferences),
              (Lines{"/gone.html", "/none.gif", "/cgi/x.cgi"}));
    EXPECT_EQ(below(bench, lists.InvalidReferencesFrom),
              (Lines{"/a/one.html", "/index.html", "/index.html"}));
    EXPECT_EQ(linesOf(lists.IgnoredReferences), Lines{"mailto:x"});
    EXPECT_EQ(below(bench, lists.UnusedList), (Lines{"/orphan.txt", "/b/pic.gif"}));
    EXPECT_EQ(below(bench, lists.DuplicateList), Lines{"/pic.gif"});
    EXPECT_EQ(bench.window.titles,
              (Lines{"Checking References", "Checking Unused Files", "Checking Topic References",
                     "Checking For Duplicate Invalid References",
                     "Checking for Duplicate Ignored References", "-",
                     "Checking for Duplicate Files", "-"}));
    EXPECT_EQ(bench.window.calls, (Lines{"enter", "results", "leave"}));
}

TEST(CheckRun, LocalRunPostsItsMessagesInOrder) {
    RunBench bench;
    bench.site.write("index.html", page({"gone.html", "none.gif", "/x", "index.html"}));
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
               "Checking Invalid Reference " + root + "none.gif", "Quillmark Finished"}));
    EXPECT_EQ(bench.messages.debugs.front(), "Base URL: ");
    EXPECT_EQ(bench.messages.debugs.back(), "Added Invalid Reference(1) " + root + "gone.html");
}

TEST(CheckRun, RemoteRunFindsWhatTheLocalOneFinds) {
    RunBench bench;
    writeSite(bench);
    bench.runLocal();
    const auto found = [&bench] {
        const ResultLists& lists = bench.lists;
        return std::vector<Lines>{below(bench, lists.FileList), below(bench, lists.ReferenceList),
                                  below(bench, lists.InvalidReferences),
                                  below(bench, lists.UnusedList), linesOf(lists.IgnoredReferences)};
    };
    const std::vector<Lines> local = found();
    bench.messages.normals.clear();
    bench.settings.profile.HOST_NAME = "ftp.site.org";
    bench.settings.profile.GET_STATS = 1;
    bench.settings.profile.UPPER_LEVELS = 1;
    EXPECT_EQ(bench.runRemote(), RunOutcome::Finished);
    EXPECT_EQ(found(), local);
    EXPECT_EQ(bench.state.baseUrl, "http://www.site.org/");
    EXPECT_GT(bench.state.hostByteTotal, 0);
    EXPECT_FALSE(bench.host.connected());
    EXPECT_EQ(
        Lines(bench.messages.normals.begin(), bench.messages.normals.begin() + 6),
        (Lines{"Quillmark running in Remote Mode", "Starting...", "Checking For /index.html",
               "Retrieving /index.html", "Getting Directory For /", "Getting Directory For /a/"}));
}

struct EndCase {
    const char* name;
    std::function<void(RunBench&)> arrange;
    bool remote;
    RunOutcome outcome;
    Lines lastMessages;
    Lines calls;
};

TEST(CheckRun, EndsAsItsTroubleAsksFor) {
    const std::vector<EndCase> cases = {
        {"NoConnection",
         [](RunBench& b) { b.host.refuses = true; },
         true,
         RunOutcome::Aborted,
         {"Unable to connect", "Checking For /index.html", "Unable to locate Start File - Aborting",
          "Quillmark Aborted"},
         {"enter", "leave"}},
        {"StartFileRefused",
         [](RunBench& b) { std::filesystem::remove(b.path("index.html")); },
         true,
         RunOutcome::Aborted,
         {"Unable to retrieve start file", "Unable to locate Start File - Aborting",
          "Quillmark Aborted"},
         {"enter", "leave"}},
        {"StartFileNotListed",
         [](RunBench& b) { std::filesystem::remove(b.path("index.html")); },
         false,
         RunOutcome::Aborted,
         {"Unable to read start file", "Quillmark Aborted"},
         {"enter", "leave"}},
        {"ConnectionLost",
         [](RunBench& b) { b.host.lostAt = "/a/one.html"; },
         true,
         RunOutcome::Failed,
         {"An Error Has Occurred (Connection lost(1099))"},
         {"enter", "leave"}},
        {"ListingLost",
         [](RunBench& b) { b.host.lostAt = "/a/"; },
         true,
         RunOutcome::Finished,
         {"Quillmark Finished"},
         {"enter", "results", "leave"}},
        {"ShortUpperLevelOnTheHost",
         [](RunBench& b) { b.site.write("a/one.html", page({"../x"})); },
         true,
         RunOutcome::Failed,
         {"An Error Has Occurred (Invalid procedure call or argument(5))"},
         {"enter", "leave"}},
        {"ShortUpperLevelOnTheDisk",
         [](RunBench& b) { b.site.write("a/one.html", page({"../x"})); },
         false,
         RunOutcome::Finished,
         {"Quillmark Finished"},
         {"enter", "results", "leave"}},
    };
    for (const EndCase& row : cases) {
        SCOPED_TRACE(row.name);
        RunBench bench;
        writeSite(bench);
        row.arrange(bench);
        EXPECT_EQ(row.remote ? bench.runRemote() : bench.runLocal(), row.outcome);
        const Lines& all = bench.messages.normals;
        ASSERT_GE(all.size(), row.lastMessages.size());
        EXPECT_EQ(
            Lines(all.end() - static_cast<std::ptrdiff_t>(row.lastMessages.size()), all.end()),
            row.lastMessages);
        EXPECT_EQ(bench.window.calls, row.calls);
        EXPECT_FALSE(bench.state.abort);
    }
}

TEST(CheckRun, StopInTheWalkAborts) {
    RunBench bench;
    writeSite(bench);
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
    bench.messages.onPost = nullptr;
    EXPECT_EQ(bench.runLocal(), RunOutcome::Finished);
}

TEST(CheckRun, ListsDirectoriesWithinTheDepth) {
    struct DepthCase {
        const char* name;
        std::int16_t maximum;
        std::string start;
        Lines listed;
    };
    for (const DepthCase& row :
         {DepthCase{"All", 0, "/www/index.html", {"/www/", "/www/a/", "/www/a/b/"}},
          DepthCase{"One", 1, "/www/index.html", {"/www/"}},
          DepthCase{"SumBelow", 4, "/www/index.html", {"/www/", "/www/a/"}},
          DepthCase{"SumEqual", 3, "/www/index.html", {"/www/"}}}) {
        SCOPED_TRACE(row.name);
        RunBench bench;
        bench.site.write("www/index.html", "");
        bench.site.write("www/a/b/c.txt", "");
        bench.settings.profile.MAX_LEVELS = row.maximum;
        bench.runRemote(row.start);
        Lines listed;
        for (const std::string& message : bench.messages.normals) {
            if (message.starts_with("Getting Directory For ")) {
                listed.push_back(message.substr(22));
            }
        }
        EXPECT_EQ(listed, row.listed);
    }
}

TEST(CheckRun, WrongCaseIsValidAndScannedWhenCaseIsIgnored) {
    RunBench bench;
    bench.site.write("index.html", page({"Sub/PAGE.html"}));
    bench.site.write("sub/page.html", page({"gone.gif"}));
    bench.runLocal();
    EXPECT_EQ(below(bench, bench.lists.InvalidReferences), Lines{"/Sub/gone.gif"});
    EXPECT_EQ(bench.lists.UnusedList.Count(), 0);
    bench.settings.configuration.IGNORECASE = 0;
    bench.runLocal();
    EXPECT_EQ(below(bench, bench.lists.InvalidReferences), Lines{"/Sub/PAGE.html"});
    EXPECT_EQ(below(bench, bench.lists.UnusedList), Lines{"/sub/page.html"});
}

TEST(CheckRun, SoundsAlternateOnlyWhileTheyAreOn) {
    RunBench bench;
    bench.site.write("index.html", "");
    bench.runLocal();
    bench.settings.configuration.SOUND = 1;
    bench.runLocal();
    bench.runLocal();
    EXPECT_EQ(bench.window.calls,
              (Lines{"enter", "results", "leave", "enter", "fastchug", "results", "moo", "leave",
                     "enter", "engine", "results", "dhombls", "leave"}));
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

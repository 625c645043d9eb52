#include "ui/results/ResultsView.h"

#include "support/RunFakes.h"
#include "ui/results/ItemActions.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillmark {
namespace {

/// A view of a small run, each list with an empty line in it.
struct ResultsViewTest : testing::Test {
    ResultsViewTest() {
        setenv("LC_ALL", "C", 1);
        SetDefaultSettings(workspace.settings);
        workspace.settings.configuration.masks.lstFileMasks = listOf({".GIF", "TXT"});
        ResultLists& lists = workspace.lists;
        lists.DirectoryList = listOf({"/w/", "", "/a/"});
        lists.FileList = listOf({"/b/z.gif", "", "/c/Y.HTM", "/a/z.gif", "/a/x.txt"});
        lists.ReferenceList = listOf({"/q.htm", "/b/p.gif", ""});
        lists.ReferenceListFrom = listOf({"(base file)", "/q.htm", "/none"});
        lists.UnusedList = listOf({"/u.zip", "/t.zip", ""});
        lists.InvalidReferences = listOf({"", "/z.htm", "/a.htm"});
        lists.InvalidReferencesFrom = listOf({"/none", "/i", "/j"});
        lists.IgnoredReferences = listOf({"mailto:me", "", "#a.htm"});
        lists.IgnoredReferencesFrom = listOf({"/i", "/none", "/j"});
        lists.DuplicateList = listOf({"/d/z.htm", "", "/d/a.htm"});
        workspace.run.hostByteTotal = 1234567;
    }

    /// The headers, the rows and the caption in one text.
    std::string shown() const {
        std::string text;
        for (int column = 0; column < view.columnCount(); ++column) {
            text.append(view.header(column)).append(column == 0 ? " | " : " ");
        }
        for (int row = 0; row < view.rowCount(); ++row) {
            for (int column = 0; column < view.columnCount(); ++column) {
                text.append(column == 0 ? "| " : "< ").append(view.text(row, column)).append(" ");
            }
        }
        return text + "| " + view.caption();
    }

    Workspace workspace;
    test::RecordingMessages messages;
    test::RecordingWindow progress;
    ResultsView view{workspace, messages, progress};
};

struct DisplayCase {
    std::size_t display;
    std::optional<FileCategory> category;
    SortOrder order;
    const char* shown;
};

TEST_F(ResultsViewTest, ShowsEachDisplayMaskedAndSortedInItsOwnWay) {
    constexpr auto All = FileCategory::All;
    constexpr auto None = SortOrder::None;
    for (const DisplayCase& row : {
             DisplayCase{0, All, None,
                         "Directories | | /w/ | /a/ | Host Directory Listing (2 Entries)"},
             {0, FileCategory::Image, SortOrder::Path,
              "Directories | | /a/ | /w/ | Host Directory Listing (2 Entries)"},
             {1, All, None,
              "Files | | /b/z.gif | /c/Y.HTM | /a/z.gif | /a/x.txt | Host File Listing (4 Files)"},
             {1, FileCategory::Code, None, "Files | | /c/Y.HTM | Host File Listing (1 Files)"},
             {1, FileCategory::UserDefined, SortOrder::Name,
              "Files | | /a/x.txt | /a/z.gif | /b/z.gif | Host File Listing (3 Files)"},
             {1, All, SortOrder::Path,
              "Files | | /a/x.txt | /a/z.gif | /b/z.gif | /c/Y.HTM | Host File Listing (4 Files)"},
             {1, std::nullopt, None, "Files | | Host File Listing (0 Files)"},
             {2, All, None,
              "Reference | Referenced In | /q.htm < (base file) | /b/p.gif < /q.htm "
              "| Host References (2 Files)"},
             {2, All, SortOrder::Name,
              "Reference | Referenced In | /b/p.gif < /q.htm | /q.htm < (base file) "
              "| Host References (2 Files)"},
             {3, All, SortOrder::Name,
              "Unused Files | | /t.zip | /u.zip | Unused Host Files (2 Files)"},
             {4, FileCategory::Code, SortOrder::Name,
              "Reference | Referenced in | /z.htm < /i | /a.htm < /j | Invalid References (2 "
              "Files)"},
             {5, All, SortOrder::Path,
              "Reference | Referenced in | mailto:me < /i | #a.htm < /j | Ignored References (2 "
              "Files)"},
             {5, FileCategory::Code, None,
              "Reference | Referenced in | #a.htm < /j | Ignored References (1 Files)"},
             {6, All, SortOrder::Name,
              "Duplicate Files | | /d/z.htm | /d/a.htm | Duplicate File Listing (2 Entries)"},
         }) {
        view.ShowResults({row.display, row.category, row.order});
        EXPECT_EQ(shown(), row.shown);
        EXPECT_EQ(workspace.lists.TempList.Count() + workspace.lists.TempListCount.Count(), 0);
    }
    EXPECT_TRUE(messages.normals.empty());
    progress.titles.resize(6);
    EXPECT_EQ(progress.titles, (Lines{"Building List", "-", "Sorting", "-", "Building List", "-"}));
}

/// Two pages: the first names the second, a part of it, and what is not there.
void fillSite(SiteResults& site) {
    site.filled = true;
    site.files = {{"/w/i.html"}, {"/w/b/a.html"}};
    site.otherTargets = {"/w/z.gif"};
    site.pages = {{0, 0}, {1, 2}};
    site.references = {{1, 3, 1}, {2, 4, 1}, {0, 7, 2}};
    Finding gone;
    gone.at.line = 4;
    gone.target = "/w/z.gif";
    gone.suggestion = "b/z.gif";
    Finding part;
    part.kind = FindingKind::FragmentMissing;
    part.level = FindingLevel::Note;
    part.at = {1, 7, 2, {}, {}};
    part.target = "/w/i.html#/route";
    site.findings = {gone, part};
    IgnoredReference elsewhere;
    elsewhere.at = {1, 9, 1, {}, {}};
    elsewhere.reference = "https://else.where/";
    site.ignored = {elsewhere};
}

TEST_F(ResultsViewTest, TellsLinesAndReasonsOfTheWebRules) {
    fillSite(workspace.site);
    workspace.lists.FileList = listOf({"/w/i.html", "/w/b/a.html", "/a/i.html"});
    constexpr auto All = FileCategory::All;
    for (const DisplayCase& row : {
             DisplayCase{1, All, SortOrder::Name,
                         "Files | | /w/b/a.html | /a/i.html | /w/i.html "
                         "| Host File Listing (3 Files)"},
             {2, All, SortOrder::None,
              "Reference | Referenced In Line | /w/i.html < (base file) <  "
              "| /w/b/a.html < /w/i.html < 3 | /w/z.gif < /w/i.html < 4 "
              "| /w/i.html < /w/b/a.html < 7 | Host References (4 Files)"},
             {2, FileCategory::Code, SortOrder::Path,
              "Reference | Referenced In Line | /w/i.html < /w/b/a.html < 7 "
              "| /w/i.html < (base file) <  | /w/b/a.html < /w/i.html < 3 "
              "| Host References (3 Files)"},
             {4, All, SortOrder::Name,
              "Reference | Referenced in Line Why | /w/z.gif < /w/i.html < 4 < there is no such "
              "file | /w/i.html#/route < /w/b/a.html < 7 < Note: the page has no such id "
              "| Invalid References (1 Error, 1 Note)"},
             {4, FileCategory::Image, SortOrder::None,
              "Reference | Referenced in Line Why | /w/z.gif < /w/i.html < 4 < there is no such "
              "file | Invalid References (1 Error, 0 Notes)"},
             {5, All, SortOrder::None,
              "Reference | Referenced in Line Why | https://else.where/ < /w/b/a.html < 9 "
              "< another site | Ignored References (1 Files)"},
         }) {
        view.ShowResults({row.display, row.category, row.order});
        EXPECT_EQ(shown(), row.shown);
    }
    view.ShowResults({4, All});
    EXPECT_EQ(view.suggestion(0) + view.suggestion(1), "Did you mean b/z.gif?");
    workspace.run.localMode = true;
    EXPECT_EQ(view.targets(1)[0].view + view.targets(1)[1].move, "\\w\\i.html\\w\\b\\a.html");
    view.ShowResults({5, All});
    EXPECT_EQ(view.targets(0)[0].view + view.targets(0)[0].deletion, "https://else.where/");
    workspace.site = {};
    EXPECT_EQ(view.text(0, 0), "");
}

TEST_F(ResultsViewTest, TellsTotalsWhenSizesWereGathered) {
    workspace.settings.profile.GET_STATS = 1;
    view.ShowResults({1, FileCategory::Code});
    EXPECT_EQ(view.caption(), "Host File Listing (1 Files)");
    workspace.run.statisticsComplete = true;
    EXPECT_EQ(view.caption(), "Host File Listing (1 Files In 1,234,567 Bytes)");
    view.ShowResults({3, FileCategory::All});
    EXPECT_EQ(view.caption(), "Unused Host Files (2 Files In  Bytes)");
    view.ShowResults({6, FileCategory::All});
    EXPECT_EQ(view.caption(), "Duplicate File Listing (2 Entries)");
    workspace.settings.profile.GET_STATS = 2;
    view.ShowResults({1, FileCategory::All});
    EXPECT_EQ(view.caption(), "Host File Listing (4 Files)");
}

TEST_F(ResultsViewTest, TruncatesAListThatIsTooLong) {
    ResultList& files = workspace.lists.FileList;
    files.Clear();
    for (int i = 0; i < ResultList::Maximum - 1; ++i) {
        files.Append("/x" + std::to_string(i));
    }
    view.ShowResults({1, FileCategory::All});
    EXPECT_TRUE(messages.normals.empty());
    files.Append("/last");
    files.Append("/beyond");
    view.ShowResults({1, FileCategory::All});
    EXPECT_EQ(view.text(view.rowCount() - 1, 0), "/last");
    view.ShowResults({1, FileCategory::Image, SortOrder::Name});
    EXPECT_EQ(view.rowCount(), 0);
    const std::string message = "Exceeded List Maximum (Results List) - List Truncated";
    EXPECT_EQ(messages.normals, (Lines{message, message}));
    EXPECT_FALSE(workspace.run.abort);
}

TEST_F(ResultsViewTest, OutlivesTheListsOfARunThatBegins) {
    view.ShowResults({2, FileCategory::All});
    workspace.lists.ClearForRun();
    EXPECT_EQ(view.text(1, 0), "");
    view.clear();
    EXPECT_EQ(shown(), "| ");
}

TEST(ItemTargets, FollowTheModeAndTheSecondText) {
    struct TargetCase {
        const char* name;
        bool local;
        std::optional<std::string_view> second;
        Lines targets; ///< Of the first column and of the other.
    };
    for (const TargetCase& row : std::vector<TargetCase>{
             {"Local", true, "/w/i", {"\\w\\a", "\\w\\a", "\\w\\a", "\\w\\i", "\\w\\i", "\\w\\i"}},
             {"Remote", false, "/w/i", {"http://x/w/a", "/w/a", "", "http://x/w/i", "/w/i", ""}},
             {"OneColumn", false, std::nullopt, {"http://x/w/a", "/w/a", "", "", "", ""}},
             {"Web", true, "a Http://y", {"\\w\\a", "\\w\\a", "\\w\\a", "a Http://y", "", ""}},
             {"Ftp", false, "sftp://y", {"http://x/w/a", "/w/a", "", "sftp://y", "", ""}}}) {
        RunState run;
        run.localMode = row.local;
        run.baseUrl = "http://x";
        Lines targets;
        for (const ItemTarget& target : itemTargets(run, "/w/a", row.second)) {
            targets.insert(targets.end(), {target.view, target.deletion, target.move});
        }
        EXPECT_EQ(targets, row.targets) << row.name;
    }
    EXPECT_EQ(itemCaption("View", "/a b"), "View /a b");
    EXPECT_EQ(itemCaption("View", ""), "");
}

} // namespace
} // namespace quillmark

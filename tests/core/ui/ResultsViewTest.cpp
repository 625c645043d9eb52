#include "ui/results/ResultsView.h"

#include "base/Failure.h"
#include "core/store/Lists.h"
#include "settings/DefaultSettings.h"
#include "ui/results/ItemActions.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillmark {
namespace {

class KeptMessages : public Messages {
public:
    void MessageHandler(bool /*debug*/, std::string_view text) override {
        posted.emplace_back(text);
    }
    bool wantsDebug() const override { return false; }
    Lines posted;
};

class KeptTitles : public Progress {
public:
    void InitializeThinking(std::string_view title) override { titles.append(title).append(" "); }
    void UpdateThinking(int /*current*/, int /*total*/) override {}
    void RemoveThinking() override { titles += "- "; }
    std::string titles;
};

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
    KeptMessages messages;
    KeptTitles progress;
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
             {0, std::nullopt, SortOrder::Name,
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
             {2, FileCategory::Image, SortOrder::Path,
              "Reference | Referenced In | /b/p.gif < /q.htm | Host References (1 Files)"},
             {3, All, SortOrder::Name,
              "Unused Files | | /t.zip | /u.zip | Unused Host Files (2 Files)"},
             {3, FileCategory::Document, None, "Unused Files | | Unused Host Files (0 Files)"},
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
    EXPECT_TRUE(messages.posted.empty());
    EXPECT_TRUE(progress.titles.starts_with("Building List - Sorting - Building List - "));
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
    EXPECT_TRUE(messages.posted.empty());
    files.Append("/last");
    files.Append("/beyond");
    view.ShowResults({1, FileCategory::All});
    EXPECT_EQ(view.text(view.rowCount() - 1, 0), "/last");
    view.ShowResults({1, FileCategory::Image, SortOrder::Name});
    EXPECT_EQ(view.rowCount(), 0);
    const std::string message = "Exceeded List Maximum (Results List) - List Truncated";
    EXPECT_EQ(messages.posted, (Lines{message, message}));
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
        ItemTarget first;
        ItemTarget other;
    };
    for (const TargetCase& row :
         {TargetCase{"Local",
                     true,
                     "/w/i.htm",
                     {"\\w\\a", "\\w\\a", "\\w\\a"},
                     {"\\w\\i.htm", "\\w\\i.htm", "\\w\\i.htm"}},
          TargetCase{"Remote",
                     false,
                     "/w/i.htm",
                     {"http://x/w/a", "/w/a", ""},
                     {"http://x/w/i.htm", "/w/i.htm", ""}},
          TargetCase{"OneColumn", false, std::nullopt, {"http://x/w/a", "/w/a", ""}, {}},
          TargetCase{"WebAddress",
                     true,
                     "see Http://y/z",
                     {"\\w\\a", "\\w\\a", "\\w\\a"},
                     {"see Http://y/z", "", ""}},
          TargetCase{"FtpAddress",
                     false,
                     "sftp://y",
                     {"http://x/w/a", "/w/a", ""},
                     {"sftp://y", "", ""}}}) {
        SCOPED_TRACE(row.name);
        RunState run;
        run.localMode = row.local;
        run.baseUrl = "http://x";
        const ItemTargets targets = itemTargets(run, "/w/a", row.second);
        for (const std::size_t column : {0U, 1U}) {
            const ItemTarget& expected = column == 0 ? row.first : row.other;
            EXPECT_EQ(targets.at(column).view, expected.view);
            EXPECT_EQ(targets.at(column).deletion, expected.deletion);
            EXPECT_EQ(targets.at(column).move, expected.move);
        }
    }
    EXPECT_EQ(itemCaption("View", "/a b"), "View /a b");
    EXPECT_EQ(itemCaption("View", ""), "");
}

} // namespace
} // namespace quillmark

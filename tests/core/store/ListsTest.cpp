#include "support/Lists.h"
#include "base/Numbers.h"
#include "store/CappedList.h"
#include "store/FileCategory.h"
#include "store/ListSorting.h"
#include "store/ResultList.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace quillmark {
namespace {

TEST(ResultList, ActsAsAVectorOfLinesThatStayInPlace) {
    std::mt19937 random(1);
    ResultList list;
    Lines lines;
    std::vector<std::pair<std::string_view, std::string>> views; ///< Of all lines ever appended.
    for (int i = 0; i < 2500; ++i) {
        if (random() % 4 < 3 || lines.empty()) {
            lines.emplace_back(random() % 40, static_cast<char>('a' + random() % 26));
            list.Append(lines.back());
            views.emplace_back(list.Line(list.Count() - 1), lines.back());
        } else {
            const auto removed = static_cast<int>(random() % lines.size());
            list.Remove(removed);
            lines.erase(lines.begin() + removed);
        }
        ASSERT_EQ(linesOf(list), lines) << "after step " << i;
    }
    for (const auto& [view, line] : views) {
        ASSERT_EQ(view, line);
    }
    ResultList copy = list;
    ResultList assigned = listOf({"old"});
    assigned = list;
    copy.Append("further");
    EXPECT_EQ(linesOf(list), lines) << "a copy is a list of its own";
    list.Clear();
    list.Append("first of the next run");
    EXPECT_EQ(linesOf(assigned), lines);
    EXPECT_EQ(linesOf(list), Lines{"first of the next run"});
}

TEST(ResultList, SharesTheBytesOfALineForAsLongAsEitherListNeedsThem) {
    ResultList references = listOf({"a", "b"});
    ResultList invalid;
    {
        ResultList between;
        between.AppendFrom(references, 1);
        invalid.AppendFrom(between, 0);
    }
    EXPECT_EQ(invalid.Line(0).data(), references.Line(1).data());
    references.Clear();
    references.Append("another, of the next run");
    EXPECT_EQ(linesOf(invalid), Lines{"b"});
    invalid.Append("c");
    invalid.Append("c");
    EXPECT_EQ(invalid.Line(1).data(), invalid.Line(2).data()) << "a page makes many references";
}

TEST(CappedList, LetsOlderLinesGoBeforeTheyFillTheMemory) {
    CappedList list;
    const std::string half(CappedList::LargestSize / 2, 'x');
    list.Append("first");
    list.Append(half);
    list.Append(half);
    EXPECT_EQ(list.Count(), 2);
    list.Append(half + half + half);
    EXPECT_EQ(list.Count(), 1) << "the newest line stays, whatever its length";
    list.Append("last");
    EXPECT_EQ(linesOf(list), Lines{"last"});
}

/// Inserts each line behind the last smaller one, so that equal keys end up in reverse.
void insertionSort(Lines& keys, Lines& indexes) {
    for (std::size_t i = 1; i < keys.size(); ++i) {
        for (std::size_t j = i; j > 0 && keys[j - 1] >= keys[j]; --j) {
            std::swap(keys[j - 1], keys[j]);
            std::swap(indexes[j - 1], indexes[j]);
        }
    }
}

struct ListSorting : testing::Test, Progress {
    void InitializeThinking(std::string_view title) override { progress = title; }
    void UpdateThinking(int current, int total) override {
        progress += " " + std::to_string(current) + "/" + std::to_string(total);
    }
    void RemoveThinking() override { progress += " removed"; }

    ResultLists lists;
    std::string progress;
};

TEST_F(ListSorting, OrdersGeneratedNamesAsAnInsertionSort) {
    std::mt19937 random(7);
    for (const int count : {400, 10, 3, 1, 2}) {
        Lines keys;
        Lines indexes;
        for (int i = 0; i < count; ++i) {
            keys.emplace_back(random() % 3, "aBz_\xE9"[random() % 5]);
            indexes.push_back(zeroPadded(i, 3));
        }
        BuildSortKeys(listOf(keys), SortOrder::Name, lists, *this);
        insertionSort(keys, indexes);
        ASSERT_EQ(linesOf(lists.TempList), keys);
        ASSERT_EQ(linesOf(lists.TempListCount), indexes);
    }
    EXPECT_EQ(progress, "Sorting 1/2 removed");
}

TEST(CheckMask, ComparesExtensions) {
    CategoryMasks masks;
    masks.lstCodeMask = listOf({"HTML", "HTM"});
    masks.lstImageMask = listOf({"JPEG", "GIF"});
    masks.lstMultimediaMask = listOf({"WAV", "MID"});
    masks.lstDocumentMask = listOf({"DOC", "TXT"});
    masks.lstArchiveMask = listOf({"ARJ", "ZIP"});
    masks.lstFileMasks = listOf({".CLASS", " .DOT", "PL", "."});
    const auto matches = [&](std::string_view name, FileCategory selected) {
        return subCheckMask(name, selected, masks);
    };
    EXPECT_FALSE(subCheckMask("A.GIF", std::nullopt, masks));
    EXPECT_TRUE(matches("README", FileCategory::All));
    EXPECT_TRUE(matches("A.HTM", FileCategory::Code));
    EXPECT_FALSE(matches("A.htm", FileCategory::Code));
    EXPECT_TRUE(matches("LOGO.GIF", FileCategory::Image));
    EXPECT_TRUE(matches("A.MID", FileCategory::Multimedia));
    EXPECT_TRUE(matches("LOGO.JPEG.TXT", FileCategory::Document));
    EXPECT_TRUE(matches("A.ZIP", FileCategory::Archive));
    EXPECT_TRUE(matches("A.CLASS", FileCategory::UserDefined));
    EXPECT_TRUE(matches("A.PL", FileCategory::UserDefined));
    EXPECT_FALSE(matches("A.DOT", FileCategory::UserDefined)) << "the blank belongs to the mask";
    EXPECT_TRUE(matches("PL", FileCategory::UserDefined)) << "a dot alone: files without one";
}

} // namespace
} // namespace quillmark

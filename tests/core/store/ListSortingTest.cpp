#include "store/ListSorting.h"

#include "base/Numbers.h"
#include "core/store/Lists.h"

#include <gtest/gtest.h>

#include <random>

namespace quillmark {
namespace {

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

    /// Over what an earlier sorting left.
    void build(const Lines& source, SortOrder order) {
        BuildSortKeys(listOf(source), order, lists, *this);
    }

    ResultLists lists;
    std::string progress;
};

TEST_F(ListSorting, OrdersGeneratedNamesAsAnInsertionSort) {
    std::mt19937 random(7);
    for (const int count : {400, 10, 3, 2, 1}) {
        Lines keys;
        Lines indexes;
        for (int i = 0; i < count; ++i) {
            keys.emplace_back(random() % 3, "aBz_\xE9"[random() % 5]);
            indexes.push_back(zeroPadded(i, 3));
        }
        build(keys, SortOrder::Name);
        insertionSort(keys, indexes);
        ASSERT_EQ(linesOf(lists.TempList), keys);
        ASSERT_EQ(linesOf(lists.TempListCount), indexes);
    }
}

TEST_F(ListSorting, TakesNamesOrPathsAndShowsProgress) {
    build({"/0/b", "/1/a"}, SortOrder::Name);
    EXPECT_EQ(linesOf(lists.TempList), (Lines{"a", "b"}));
    EXPECT_EQ(progress, "Sorting 1/2 removed");
    build({"/b/0", "/a/1"}, SortOrder::Path);
    EXPECT_EQ(linesOf(lists.TempList), (Lines{"/a/", "/b/"}));
    progress.clear();
    build({"/b", "/a"}, SortOrder::None);
    EXPECT_EQ(lists.TempList.Count() + lists.TempListCount.Count(), 0);
    EXPECT_EQ(progress, "");
}

} // namespace
} // namespace quillmark

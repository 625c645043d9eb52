#include "store/ListSorting.h"

#include "base/Numbers.h"
#include "support/Lists.h"

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

} // namespace
} // namespace quillmark

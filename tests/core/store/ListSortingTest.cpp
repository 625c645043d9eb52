#include "store/ListSorting.h"

#include "core/store/Lists.h"

#include <gtest/gtest.h>

#include <random>

namespace quillmark {
namespace {

using Lines = std::vector<std::string>;

class RecordedProgress : public Progress {
public:
    void InitializeThinking(std::string_view title) override { calls.emplace_back(title); }
    void UpdateThinking(int current, int total) override {
        calls.push_back(std::to_string(current) + "/" + std::to_string(total));
    }
    void RemoveThinking() override { calls.emplace_back("removed"); }

    Lines calls;
};

/// Inserts each line behind the last smaller one, so that equal keys end up in reverse.
void insertionSort(Lines& keys, Lines& indexes) {
    for (std::size_t i = 1; i < keys.size(); ++i) {
        for (std::size_t j = i; j > 0 && keys[j - 1] >= keys[j]; --j) {
            std::swap(keys[j - 1], keys[j]);
            std::swap(indexes[j - 1], indexes[j]);
        }
    }
}

TEST(VeryQuickSort, OrdersGeneratedKeysAsAnInsertionSort) {
    std::mt19937 random(7);
    for (const int count : {2, 3, 10, 400}) {
        Lines keys;
        Lines indexes;
        for (int i = 0; i < count; ++i) {
            keys.emplace_back(random() % 3, "aBz_\xE9"[random() % 5]);
            indexes.push_back(std::to_string(i));
        }
        ResultLists lists;
        lists.TempList = listOf(keys);
        lists.TempListCount = listOf(indexes);
        RecordedProgress progress;
        VeryQuickSort(lists, progress);
        insertionSort(keys, indexes);
        ASSERT_EQ(linesOf(lists.TempList), keys);
        ASSERT_EQ(linesOf(lists.TempListCount), indexes);
    }
}

struct SortRow {
    const char* name;
    Lines source;
    SortOrder order;
    Lines keys;
    Lines indexes;
    Lines progress;
};

class BuildSortKeysTest : public testing::TestWithParam<SortRow> {};

TEST_P(BuildSortKeysTest, SortsKeysWithTheirIndexes) {
    ResultLists lists;
    lists.TempList = listOf({"stale"});
    lists.TempListCount = listOf({"000"});
    RecordedProgress progress;
    BuildSortKeys(listOf(GetParam().source), GetParam().order, lists, progress);
    EXPECT_EQ(linesOf(lists.TempList), GetParam().keys);
    EXPECT_EQ(linesOf(lists.TempListCount), GetParam().indexes);
    EXPECT_EQ(progress.calls, GetParam().progress);
}

const Lines Three = {"Sorting", "1/3", "2/3", "removed"};
const std::vector<SortRow> SortRows = {
    {"None", {"/b", "/a"}, SortOrder::None, {}, {}, {}},
    {"NameOfNothing", {}, SortOrder::Name, {}, {}, {}},
    {"NameOfOne", {"/b/x.htm"}, SortOrder::Name, {"x.htm"}, {"000"}, {"Sorting", "removed"}},
    {"Name",
     {"/1/b", "/2/a", "/0/c"},
     SortOrder::Name,
     {"a", "b", "c"},
     {"001", "000", "002"},
     Three},
    {"EqualNames",
     {"/a/x", "/b/x", "/c/x"},
     SortOrder::Name,
     {"x", "x", "x"},
     {"002", "001", "000"},
     Three},
    {"CaseAndDigits",
     {"file9", "Zeta", "file10"},
     SortOrder::Name,
     {"Zeta", "file10", "file9"},
     {"001", "002", "000"},
     Three},
    {"Path",
     {"/b/1", "/a/2", "/b/0"},
     SortOrder::Path,
     {"/a/", "/b/", "/b/"},
     {"001", "002", "000"},
     Three}};

INSTANTIATE_TEST_SUITE_P(Orders, BuildSortKeysTest, testing::ValuesIn(SortRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace quillmark

#include "store/ListSorting.h"

#include "base/Numbers.h"
#include "base/PathParser.h"

#include <algorithm>
#include <vector>

namespace quillmark {

namespace {

struct SortLine {
    std::string_view key;
    std::string_view index;
};

} // namespace

void BuildSortKeys(const ResultList& source, SortOrder order, ResultLists& lists,
                   Progress& progress) {
    lists.TempList.Clear();
    lists.TempListCount.Clear();
    if (order != SortOrder::None) {
        PathParser parser;
        for (int i = 0; i < source.Count(); ++i) {
            parser.FileSpec(source.Line(i));
            lists.TempList.Append(order == SortOrder::Name ? parser.FileName() : parser.Path());
            lists.TempListCount.Append(zeroPadded(i, 3));
        }
    }
    VeryQuickSort(lists, progress);
}

void VeryQuickSort(ResultLists& lists, Progress& progress) {
    const int count = lists.TempList.Count();
    if (count < 1) {
        return;
    }
    progress.InitializeThinking("Sorting");
    std::vector<SortLine> sorted;
    sorted.reserve(static_cast<std::size_t>(count));
    // From the last line on: a stable sort then leaves equal keys in reverse.
    for (int i = count - 1; i >= 0; --i) {
        sorted.push_back({lists.TempList.Line(i), lists.TempListCount.Line(i)});
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const SortLine& a, const SortLine& b) { return a.key < b.key; });
    ResultList keys;
    ResultList indexes;
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            progress.UpdateThinking(i, count);
        }
        keys.Append(sorted[static_cast<std::size_t>(i)].key);
        indexes.Append(sorted[static_cast<std::size_t>(i)].index);
    }
    lists.TempList = keys;
    lists.TempListCount = indexes;
    progress.RemoveThinking();
}

std::vector<int> sortedLines(int count, const LineOf& line, SortOrder order) {
    struct Keyed {
        std::string_view key;
        int index = 0;
    };
    std::vector<Keyed> keyed;
    keyed.reserve(static_cast<std::size_t>(count));
    // In the same order as VeryQuickSort, equal keys in reverse.
    for (int i = count - 1; i >= 0; --i) {
        const PathParser parser(line(i));
        keyed.push_back({order == SortOrder::Name ? parser.FileName() : parser.Path(), i});
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    std::vector<int> sorted;
    sorted.reserve(keyed.size());
    for (const Keyed& one : keyed) {
        sorted.push_back(one.index);
    }
    return sorted;
}

} // namespace quillmark

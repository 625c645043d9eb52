#pragma once

#include "store/Progress.h"
#include "store/ResultLists.h"

#include <functional>
#include <string_view>
#include <vector>

namespace quillmark {

/// What the sort selector offers, in its order: "None", "Name", "Path".
enum class SortOrder { None, Name, Path };

/// Fills TempList with one sort key for each line of the source, and TempListCount with the line's
/// 0-based index in at least three digits ("007"), then sorts both. SortOrder::None leaves both
/// empty.
void BuildSortKeys(const ResultList& source, SortOrder order, ResultLists& lists,
                   Progress& progress);

/// Sorts TempList by character code, moving each TempListCount line with its key. Equal keys come
/// out in the reverse of their order, as the view has always shown them.
void VeryQuickSort(ResultLists& lists, Progress& progress);

/// Gives a line by its 0-based index; the text must stay valid while the lines are sorted.
using LineOf = std::function<std::string_view(int)>;

/// The indices of `count` lines in the order that VeryQuickSort gives them, for lists of millions
/// of lines. `order` is Name or Path.
std::vector<int> sortedLines(int count, const LineOf& line, SortOrder order);

} // namespace quillmark

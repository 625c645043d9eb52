#pragma once

#include "store/Progress.h"
#include "store/ResultLists.h"

namespace quillmark {

/// What the sort selector offers, in its order: "None", "Name", "Path".
enum class SortOrder { None, Name, Path };

/// Fills TempList with a sort key a line of the source and TempListCount with the line's index
/// ("000" form: 7 is 007), both empty for SortOrder::None, and sorts them.
void BuildSortKeys(const ResultList& source, SortOrder order, ResultLists& lists,
                   Progress& progress);

/// Sorts TempList by character code, moving each TempListCount line with its key. Equal keys come
/// out in the reverse of their order, as the view has always shown them.
void VeryQuickSort(ResultLists& lists, Progress& progress);

} // namespace quillmark

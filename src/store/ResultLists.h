#pragma once

#include "store/CappedList.h"
#include "store/ResultList.h"

#include <string_view>

namespace quillmark {

/// The width of the size at the end of a line of FileSizes.
inline constexpr int SizeDigits = 9;

/// What a ...From list holds for the start file, which no page refers to.
inline constexpr std::string_view BaseFile = "(base file)";

/// Everything that a check run finds. Each pair of lists is parallel: line i of a ...From list is
/// the file that refers to line i of its partner, and line i of FileSizes is line i of FileList
/// followed by the file's size. The lists keep what they hold until the next run begins.
struct ResultLists {
    ResultList DirectoryList; ///< Directories of the inventory, "/" form, ending in "/".
    ResultList FileList;      ///< Files of the inventory, full path in "/" form.
    ResultList FileSizes;     ///< The FileList line and the size in bytes as SizeDigits digits.
    ResultList GetFileList;   ///< Pages that were retrieved in this run.
    ResultList ReferenceList; ///< References as resolved paths.
    ResultList ReferenceListFrom;
    ResultList InvalidReferences; ///< References that no file of the inventory answers.
    ResultList InvalidReferencesFrom;
    ResultList IgnoredReferences; ///< References that were not checked, as the page writes them.
    ResultList IgnoredReferencesFrom;
    ResultList UnusedList;    ///< FileList lines that no reference reaches.
    ResultList DuplicateList; ///< FileList lines whose name and size another file has.
    ResultList TempList;      ///< Sort keys while a view is being sorted.
    ResultList TempListCount; ///< The index of the line that each sort key stands for.
    CappedList Message;       ///< The newest progress messages, 51 at most.

    /// Clears what a run fills, for the next run. Message is left: Start clears it.
    void ClearForRun() {
        for (ResultList* list :
             {&UnusedList, &IgnoredReferences, &IgnoredReferencesFrom, &InvalidReferences,
              &InvalidReferencesFrom, &DirectoryList, &FileList, &ReferenceList, &ReferenceListFrom,
              &GetFileList, &TempList, &DuplicateList, &FileSizes}) {
            list->Clear();
        }
    }
};

/// Two parallel lists handled as one, so that they cannot fall out of step.
class ListPair {
public:
    ListPair(ResultList& lines, ResultList& from) : lines_(lines), from_(from) {}

    /// Appends a line to each list.
    void Append(std::string_view line, std::string_view from) {
        lines_.Append(line);
        from_.Append(from);
    }
    /// Adds line i of another pair without a copy.
    void AppendFrom(const ListPair& other, int i) {
        lines_.AppendFrom(other.lines_, i);
        from_.AppendFrom(other.from_, i);
    }
    /// Removes line i of both lists.
    void Remove(int i) {
        lines_.Remove(i);
        from_.Remove(i);
    }
    const ResultList& lines() const { return lines_; }
    const ResultList& from() const { return from_; }

private:
    ResultList& lines_;
    ResultList& from_;
};

} // namespace quillmark

#pragma once

#include "run/ListLimit.h"
#include "run/RunContext.h"
#include "store/LineIndex.h"

#include <vector>

namespace quillmark {

/// The passes over the files of the inventory.
class FilePasses {
public:
    /// `files` is the index of FileList.
    FilePasses(RunContext& context, ListLimit& limit, LineIndex& files)
        : context_(context), limit_(limit), files_(files) {}

    /// Lists the files that no reference names. Ends early when the run is aborted.
    void checkUnusedFiles();
    /// Lists the files that have the name (whatever its case) and the size of a later file: of
    /// three equal files the first two. Once started it runs to its end.
    void checkDuplicateFiles();
    /// Computes the byte totals. That of the unused files sums the sizes of as many files as are
    /// unused, counted from the top of FileList: reports have always shown this figure.
    void computeStatistics();

private:
    std::vector<bool> referredTo();

    RunContext& context_;
    ListLimit& limit_;
    LineIndex& files_;
};

} // namespace quillmark

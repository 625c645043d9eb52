#pragma once

#include "base/NameComparison.h"
#include "store/ResultList.h"

#include <string_view>
#include <unordered_set>

namespace quillmark {

/// Answers "does the list hold a line equal to this one" with one probe instead of a walk. It
/// follows a list that only grows; removals and Clear() end its use.
class LineIndex {
public:
    LineIndex(const ResultList& list, NameComparison comparison);

    bool contains(std::string_view line);

private:
    const ResultList& list_;
    int known_ = 0;
    std::unordered_set<std::string_view, NameHash, NameEqual> lines_;
};

} // namespace quillmark

#pragma once

#include "base/NameComparison.h"
#include "store/ResultList.h"

#include <memory_resource>
#include <string_view>
#include <unordered_map>

namespace quillmark {

/// Answers "which line of the list equals this one" with one probe instead of a walk. It
/// follows a list that only grows; removals and Clear() end its use.
class LineIndex {
public:
    static constexpr int NotThere = -1;

    LineIndex(const ResultList& list, NameComparison comparison)
        : list_(list), lines_(0, NameHash(comparison), NameEqual(comparison), &memory_) {}

    /// The index of the first line that is equal to this one, or NotThere.
    int find(std::string_view line) {
        for (; known_ < list_.Count(); ++known_) {
            lines_.emplace(list_.Line(known_), known_);
        }
        const auto found = lines_.find(line);
        return found == lines_.end() ? NotThere : found->second;
    }
    bool contains(std::string_view line) { return find(line) != NotThere; }

private:
    const ResultList& list_;
    int known_ = 0;
    std::pmr::monotonic_buffer_resource memory_;
    std::pmr::unordered_map<std::string_view, int, NameHash, NameEqual> lines_;
};

} // namespace quillmark

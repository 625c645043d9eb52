#pragma once

#include "run/Messages.h"
#include "run/RunState.h"
#include "store/ResultList.h"

#include <string_view>

namespace quillmark {

/// The list maximum: the line that fills a list stays in it, and the run stops as if the user had
/// pressed Stop, with all results gathered so far.
class ListLimit {
public:
    ListLimit(Messages& messages, RunState& state) : messages_(messages), state_(state) {}

    /// To be called after an append: ends the run if the list holds the maximum. `name` is the
    /// list's display name.
    void apply(const ResultList& list, std::string_view name);
    /// Appends the line and applies the maximum.
    void AddWithLimit(ResultList& list, std::string_view name, std::string_view line);
    /// Posts the message that a list was truncated.
    void ListMaximumReached(std::string_view name);

private:
    Messages& messages_;
    RunState& state_;
};

} // namespace quillmark

#pragma once

#include <string_view>

namespace quillmark {

/// Shows how far a long loop has come. One indicator is open at a time; opening it again re-titles
/// it.
class Progress {
public:
    virtual ~Progress() = default;

    /// Opens the indicator under the title followed by "...PleaseWait".
    virtual void InitializeThinking(std::string_view title) = 0;
    /// Sets it to current / total of its length; current is a 0-based index, total is not 0.
    virtual void UpdateThinking(int current, int total) = 0;
    /// Closes it; a closed one stays closed.
    virtual void RemoveThinking() = 0;
};

} // namespace quillmark

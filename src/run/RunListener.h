#pragma once

#include "store/Progress.h"

#include <string_view>

namespace quillmark {

/// What a run tells the program that started it, besides messages and progress. A program without
/// windows and sounds overrides none of it.
class RunListener : public Progress {
public:
    /// Disables what must not be touched during a run and empties the results view and the trace.
    virtual void enterRunState() {}
    /// Reverses enterRunState(), but for the results view.
    virtual void leaveRunState() {}
    /// Shows the trace window, modeless.
    virtual void showTraceWindow() {}
    /// Rebuilds the results view.
    virtual void ShowResults() {}
    /// Starts the wave file of that name followed by ".WAV" and returns at once; what goes wrong is
    /// ignored.
    virtual void play(std::string_view /*name*/) {}
};

} // namespace quillmark

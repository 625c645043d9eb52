#pragma once

namespace quillmark {

/// What a run asks of the window that it was started from.
class RunWindow {
public:
    virtual ~RunWindow() = default;

    /// Disables what must not be touched during a run and empties the results view and the trace.
    virtual void enterRunState() = 0;
    /// Reverses enterRunState(), but for the results view.
    virtual void leaveRunState() = 0;
    /// Shows the trace window, modeless.
    virtual void showTraceWindow() = 0;
    /// Rebuilds the results view.
    virtual void ShowResults() = 0;
};

} // namespace quillmark

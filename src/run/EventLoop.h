#pragma once

namespace quillmark {

/// The event loop of the program that runs the check.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Lets waiting events run, the Stop button's above all. A run calls it far more often than
    /// needed; the implementation decides by the clock when to act.
    virtual void DoEvents() = 0;
};

} // namespace quillmark

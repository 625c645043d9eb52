#pragma once

namespace quillmark {

/// The event loop of the program that runs the check.
class EventLoop {
public:
    virtual ~EventLoop() = default;

    /// Lets waiting events run, the Stop button's above all. Called far more often than is worth
    /// it: the implementation decides by the clock when to do something.
    virtual void DoEvents() = 0;
};

} // namespace quillmark

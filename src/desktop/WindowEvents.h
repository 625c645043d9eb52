#pragma once

#include "run/EventLoop.h"

#include <QWidget>

#include <chrono>

namespace quillmark {

/// The only place in the program where window events run in the middle of work.
class WindowEvents : public EventLoop {
public:
    /// Runs waiting events, every 15 ms and for 10 ms at most, and never from within itself. Any
    /// other call only looks at the clock.
    void DoEvents() override;

    /// Waits until a window that was just shown is on the screen, 300 ms at most: for a window that
    /// must be seen before work begins.
    void waitUntilSeen(const QWidget& window);

private:
    using Clock = std::chrono::steady_clock;

    bool inside_ = false;
    Clock::time_point next_;
};

} // namespace quillmark

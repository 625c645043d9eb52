#pragma once

#include "run/EventLoop.h"

#include <QWidget>

#include <chrono>

namespace quillmark {

/// The only place in the program that runs the window system's events from within work.
class WindowEvents : public EventLoop {
public:
    /// Runs what waits, every 15 ms and for 10 ms at most; never from within itself. A call between
    /// costs no more than a look at the clock.
    void DoEvents() override;

    /// Waits until a window that was just shown is on the screen, 300 ms at most: for a window that
    /// has to be seen before work begins.
    void waitUntilSeen(const QWidget& window);

private:
    using Clock = std::chrono::steady_clock;

    bool inside_ = false;
    Clock::time_point next_;
};

} // namespace quillmark

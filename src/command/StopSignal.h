#pragma once

#include "run/EventLoop.h"

#include <functional>

namespace quillmark {

/// Ctrl-C as the Stop button of a program without a window, and whatever else asks a program to
/// end: SIGINT, SIGTERM, SIGHUP. The first of them presses Stop when the run next lets events run,
/// the second ends the program at once.
class StopSignal : public EventLoop {
public:
    /// Listens from now on. One object at a time.
    StopSignal();
    ~StopSignal() override;
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// What the first signal does.
    void onStop(std::function<void()> stop) { stop_ = std::move(stop); }
    void DoEvents() override;

private:
    std::function<void()> stop_;
    bool pressed_ = false;
};

} // namespace quillmark

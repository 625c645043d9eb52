#pragma once

#include "run/EventLoop.h"

#include <functional>

namespace quillmark {

/// The Stop button of a program without a window: Ctrl-C and whatever else asks a program to end
/// (SIGINT, SIGTERM, SIGHUP). The first signal presses Stop when the run next lets events run; the
/// second ends the program at once.
class StopSignal : public EventLoop {
public:
    /// Catches the signals from now on. There may be one object at a time.
    StopSignal();
    ~StopSignal() override;
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Sets what the first signal does.
    void onStop(std::function<void()> stop) { stop_ = std::move(stop); }
    void DoEvents() override;

private:
    std::function<void()> stop_;
    bool pressed_ = false;
};

} // namespace quillmark

#pragma once

#include "run/Outside.h"
#include "run/RunState.h"
#include "run/StopToken.h"

#include <atomic>
#include <functional>
#include <string_view>

namespace quillmark::web {

/// Performs the long parts of a check and keeps the program responsive meanwhile: it lets events
/// run, shows the progress, and passes Stop on. Work on a local site is done on a thread of its
/// own; work on a host stays on the run's thread, which owns the connection.
class Phases : public StopToken {
public:
    /// `aside` says whether the work has a thread of its own.
    Phases(Outside& outside, const RunState& state, bool aside)
        : outside_(outside), state_(state), aside_(aside) {}

    /// Does the work under that title in the progress window, and returns when it is done. Does
    /// nothing if the run has been aborted. Throws what the work throws.
    void perform(std::string_view title, const std::function<void()>& work);
    bool stopped() override;

    std::atomic<int> done = 0;  ///< Steps done; the work counts them for the progress window.
    std::atomic<int> known = 0; ///< Steps in all, as far as known; 0 shows no progress.

private:
    void letEventsRun();

    Outside& outside_;
    const RunState& state_;
    bool aside_;
    std::atomic<bool> stop_ = false;
};

} // namespace quillmark::web

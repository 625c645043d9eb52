#pragma once

#include "run/Outside.h"
#include "run/RunState.h"
#include "run/StopToken.h"

#include <atomic>
#include <functional>
#include <string_view>

namespace quillmark::web {

/// Performs the long parts of a check and keeps the program alive meanwhile: it lets events run,
/// shows the progress, and passes Stop on. Work that needs no host is done on a thread of its own;
/// work on a host stays on the run's thread, which owns the connection.
class Phases : public StopToken {
public:
    Phases(Outside& outside, const RunState& state, bool aside)
        : outside_(outside), state_(state), aside_(aside) {}

    /// Returns when the work is done, at once when the run is being aborted. Throws what it throws.
    void perform(std::string_view title, const std::function<void()>& work);
    bool stopped() override;

    std::atomic<int> done = 0;  ///< For the progress: so many steps ...
    std::atomic<int> known = 0; ///< ... of so many.

private:
    void letEventsRun();

    Outside& outside_;
    const RunState& state_;
    bool aside_;
    std::atomic<bool> stop_ = false;
};

} // namespace quillmark::web

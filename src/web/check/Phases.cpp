#include "web/check/Phases.h"

#include <chrono>
#include <future>

namespace quillmark::web {

namespace {

/// Short enough for Stop and the progress bar to feel immediate.
constexpr std::chrono::milliseconds BetweenEvents{10};

} // namespace

void Phases::perform(std::string_view title, const std::function<void()>& work) {
    if (state_.abort) {
        return;
    }
    done = 0;
    known = 0;
    outside_.listener.InitializeThinking(title);
    if (aside_) {
        auto result = std::async(std::launch::async, work);
        while (result.wait_for(BetweenEvents) != std::future_status::ready) {
            letEventsRun();
        }
        letEventsRun(); // Work that ended within the first wait shows its progress, too.
        result.get();
    } else {
        letEventsRun();
        work();
    }
}

bool Phases::stopped() {
    // On the run's thread nobody else lets events run while the work goes on.
    if (!aside_) {
        letEventsRun();
    }
    return stop_;
}

void Phases::letEventsRun() {
    outside_.events.DoEvents();
    if (known > 0) {
        outside_.listener.UpdateThinking(done, known);
    }
    if (state_.abort) {
        stop_ = true;
    }
}

} // namespace quillmark::web

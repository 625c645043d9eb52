#include "windows/run/ThinkingWindow.h"

#include "windows/shared/Text.h"

namespace quillmark {

namespace {

constexpr std::chrono::milliseconds Interval{1000 / 30};

float percentage(int current, int total) {
    return static_cast<float>(static_cast<double>(current) / total * 100);
}

} // namespace

void ThinkingWindow::InitializeThinking(std::string_view title) {
    if (!window_ && owner_) {
        window_ = new frmThinking(owner_);
    }
    if (window_) {
        window_->open(shown(title) + "...PleaseWait");
    }
    next_ = {};
}

void ThinkingWindow::UpdateThinking(int current, int total) {
    const int steps = static_cast<int>(percentage(current, total) / 100 * frmThinking::Steps);
    if (steps == steps_ || Clock::now() < next_) {
        return;
    }
    steps_ = steps;
    next_ = Clock::now() + Interval;
    if (window_) {
        window_->setSteps(steps);
    }
}

void ThinkingWindow::RemoveThinking() {
    steps_ = 0;
    if (window_) {
        window_->close();
    }
}

} // namespace quillmark

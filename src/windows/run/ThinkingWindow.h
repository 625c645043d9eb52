#pragma once

#include "store/Progress.h"
#include "windows/run/frmThinking.h"

#include <QPointer>

#include <chrono>

namespace quillmark {

/// Shows in the progress window how far a long loop has come. Whoever runs the loop also lets
/// events run; this class never does.
class ThinkingWindow : public Progress {
public:
    /// Sets the window that the progress window belongs to. Nothing is shown until there is one.
    void setOwner(QWidget* owner) { owner_ = owner; }

    void InitializeThinking(std::string_view title) override;
    /// May be called for every line of a list: the bar moves 30 times a second at most, and any
    /// other call costs no more than a look at the clock.
    void UpdateThinking(int current, int total) override;
    void RemoveThinking() override;

private:
    using Clock = std::chrono::steady_clock;

    QPointer<QWidget> owner_;
    QPointer<frmThinking> window_;
    int steps_ = 0;
    Clock::time_point next_;
};

} // namespace quillmark

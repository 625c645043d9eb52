#include "desktop/WindowEvents.h"

#include <QCoreApplication>
#include <QWindow>

namespace quillmark {

namespace {

constexpr std::chrono::milliseconds Interval{15};
constexpr std::chrono::milliseconds Budget{10};
// Some window systems never say that a window is on the screen.
constexpr std::chrono::milliseconds LongestWait{300};

} // namespace

void WindowEvents::DoEvents() {
    if (inside_ || Clock::now() < next_) {
        return;
    }
    inside_ = true;
    QCoreApplication::processEvents(QEventLoop::AllEvents, static_cast<int>(Budget.count()));
    inside_ = false;
    next_ = Clock::now() + Interval;
}

void WindowEvents::waitUntilSeen(const QWidget& window) {
    const auto end = Clock::now() + LongestWait;
    while (!window.windowHandle()->isExposed() && Clock::now() < end) {
        DoEvents();
    }
    next_ = {};
    DoEvents();
}

} // namespace quillmark

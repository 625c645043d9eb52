#pragma once

#include <QTimer>

#include <functional>
#include <utility>

namespace quillmark {

/// Performs an action once at the next turn of the event loop, however often it was asked for until
/// then. What a run changes thousands of times a second is shown no more often than can be seen.
class Later {
public:
    explicit Later(std::function<void()> action) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, std::move(action));
    }

    /// Asks for the action.
    void ask() {
        if (!timer_.isActive()) {
            timer_.start(0);
        }
    }

private:
    QTimer timer_;
};

} // namespace quillmark

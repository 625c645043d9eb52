#pragma once

#include <chrono>

namespace quillmark {

/// The time that a fetch has had. It stands still while the fetch waits for its turn or for room,
/// so that no host is blamed for a wait that the program itself ordered.
class FetchClock {
public:
    void run() {
        before_ = spent();
        since_ = Clock::now();
        running_ = true;
    }
    void stop() {
        before_ = spent();
        running_ = false;
    }
    std::chrono::steady_clock::duration spent() const {
        return running_ ? before_ + (Clock::now() - since_) : before_;
    }

private:
    using Clock = std::chrono::steady_clock;

    Clock::duration before_{};
    Clock::time_point since_{};
    bool running_ = false;
};

} // namespace quillmark

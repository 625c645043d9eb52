#pragma once

#include "platform/ftp/FtpTimeouts.h"

#include <algorithm>
#include <chrono>

namespace quillmark {

/// Watches how long the host has been silent, against the time-out for what is waited for.
class ConversationClock {
public:
    explicit ConversationClock(const FtpTimeouts& timeouts) : timeouts_(timeouts) {}

    const FtpTimeouts& timeouts() const { return timeouts_; }

    void waitForConnection() { startOver(timeouts_.connect); }
    void waitForReply() { startOver(timeouts_.reply); }
    void waitForByte() { startOver(timeouts_.transfer); }
    /// A host that says nothing to a goodbye is not worth a long wait.
    void waitForGoodbye() { startOver(std::min(timeouts_.reply, Goodbye)); }

    bool expired() const { return std::chrono::steady_clock::now() >= end_; }

private:
    static constexpr std::chrono::milliseconds Goodbye{2'000};

    void startOver(std::chrono::milliseconds limit) {
        end_ = std::chrono::steady_clock::now() + limit;
    }

    FtpTimeouts timeouts_;
    std::chrono::steady_clock::time_point end_;
};

} // namespace quillmark

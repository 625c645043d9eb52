#pragma once

#include "platform/ftp/connection/FtpTimeouts.h"
#include "run/EventLoop.h"
#include "run/RunState.h"

#include <algorithm>
#include <chrono>

namespace quillmark {

/// All waiting for the host: in short slices, between which events run. Every wait ends with the
/// exception Stopped once the run is being aborted, and with ConnectionLost once the host has been
/// silent for longer than what is waited for may take.
class HostWait {
public:
    static constexpr std::chrono::milliseconds Slice{25};
    static constexpr int NoSocket = -1;

    HostWait(EventLoop& events, const RunState& state, const FtpTimeouts& timeouts)
        : events_(events), state_(state), timeouts_(timeouts) {}

    std::chrono::milliseconds connectLimit() const { return timeouts_.connect; }

    void startForConnection() { start(timeouts_.connect); }
    void startForReply() { start(timeouts_.reply); }
    void startForByte() { start(timeouts_.transfer); }
    /// A host that says nothing to a goodbye is not worth a long wait.
    void startForGoodbye() { start(std::min(timeouts_.reply, Goodbye)); }
    /// The reply to what was sent ahead follows the reply before it, or the host has dropped it.
    void startForReplyAhead() { start(std::min(timeouts_.reply, ReplyAhead)); }

    /// Lets events run.
    void breathe();
    void requireTime() const;

    /// Waits until there is something to read, or an error to hear of, at one of two sockets.
    void untilReadable(int socket, int other = NoSocket);
    /// Waits until a socket is connected, or has failed, and takes bytes.
    void untilWritable(int socket);

private:
    static constexpr std::chrono::milliseconds Goodbye{2'000};
    static constexpr std::chrono::milliseconds ReplyAhead{5'000};

    void start(std::chrono::milliseconds limit);
    void until(short event, int socket, int other);

    EventLoop& events_;
    const RunState& state_;
    FtpTimeouts timeouts_;
    std::chrono::steady_clock::time_point end_;
};

/// Whether a socket had just nothing to read or no room: it shows in errno after the call.
bool mustWait();

} // namespace quillmark

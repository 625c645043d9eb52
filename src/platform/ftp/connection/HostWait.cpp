#include "platform/ftp/connection/HostWait.h"

#include "platform/ftp/connection/FtpFailures.h"

#include <array>
#include <cerrno>

#include <poll.h>

namespace quillmark {

void HostWait::start(std::chrono::milliseconds limit) {
    end_ = std::chrono::steady_clock::now() + limit;
}

void HostWait::breathe() {
    events_.DoEvents();
    if (state_.abort) {
        throw Stopped();
    }
}

void HostWait::requireTime() const {
    if (std::chrono::steady_clock::now() >= end_) {
        throw hostIsSilent();
    }
}

void HostWait::untilReadable(int socket, int other) {
    until(POLLIN, socket, other);
}

void HostWait::untilWritable(int socket) {
    until(POLLOUT, socket, NoSocket);
}

// Asks the socket before the clock: the events may have taken longer than a host may be silent.
void HostWait::until(short event, int socket, int other) {
    std::array<pollfd, 2> entries{{{socket, event, 0}, {other, event, 0}}};
    breathe();
    while (::poll(entries.data(), entries.size(), static_cast<int>(Slice.count())) <= 0) {
        requireTime();
        breathe();
    }
}

bool mustWait() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace quillmark

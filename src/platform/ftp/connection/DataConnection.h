#pragma once

#include "platform/FileDescriptor.h"
#include "platform/ftp/connection/SocketAddress.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace quillmark {

/// The connection that one listing or one page comes over.
class DataConnection {
public:
    enum class State { Open, Ended, Broken };

    /// Begins to connect with the host (passive mode).
    static DataConnection to(const SocketAddress& address);
    /// Waits for the host to connect (active mode) at any free port.
    static DataConnection at(const SocketAddress& address);

    State state() const { return state_; }
    const FileDescriptor& socket() const { return *socket_; }
    /// Has a failure of the connection, or of the attempt to connect, show in the state.
    void noticeFailure();

    /// The bytes that have come since, in the room given; none when nothing has come. The end of
    /// the data, or its breaking off, shows in the state.
    std::string_view receive(std::span<char> room);

private:
    explicit DataConnection(FileDescriptor socket) : socket_(std::move(socket)) {}
    void acceptHost();

    std::optional<FileDescriptor> socket_;
    bool listens_ = false;
    State state_ = State::Open;
};

} // namespace quillmark

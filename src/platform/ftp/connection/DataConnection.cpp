#include "platform/ftp/connection/DataConnection.h"

#include "platform/ftp/connection/HostWait.h"

#include <utility>

#include <sys/socket.h>

namespace quillmark {

DataConnection DataConnection::to(const SocketAddress& address) {
    DataConnection data(address.newSocket());
    if (!address.beginConnecting(data.socket())) {
        data.state_ = State::Broken;
    }
    return data;
}

DataConnection DataConnection::at(const SocketAddress& address) {
    DataConnection data(address.newSocket());
    data.listens_ = true;
    if (!address.withPort(0).listenWith(data.socket())) {
        data.state_ = State::Broken;
    }
    return data;
}

void DataConnection::noticeFailure() {
    int error = 0;
    socklen_t size = sizeof error;
    if (::getsockopt(socket_->number(), SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0) {
        state_ = State::Broken;
    }
}

std::string_view DataConnection::receive(std::span<char> room) {
    if (listens_) {
        acceptHost();
        return {};
    }
    const ssize_t count = ::recv(socket_->number(), room.data(), room.size(), 0);
    if (count > 0) {
        return {room.data(), static_cast<std::size_t>(count)};
    }
    if (count == 0) {
        state_ = State::Ended;
    } else if (!mustWait()) {
        state_ = State::Broken;
    }
    return {};
}

void DataConnection::acceptHost() {
    FileDescriptor accepted(
        ::accept4(socket_->number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (accepted.isOpen()) {
        socket_.emplace(std::move(accepted));
        listens_ = false;
    } else if (!mustWait()) {
        state_ = State::Broken;
    }
}

} // namespace quillmark

#include "platform/ftp/connection/SocketAddress.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <netdb.h>
#include <netinet/in.h>

namespace quillmark {

SocketAddress SocketAddress::ofPeer(const FileDescriptor& socket) {
    SocketAddress address;
    ::getpeername(socket.number(), address.get(), &address.size_);
    return address;
}

SocketAddress SocketAddress::ofOwnEnd(const FileDescriptor& socket) {
    SocketAddress address;
    ::getsockname(socket.number(), address.get(), &address.size_);
    return address;
}

SocketAddress SocketAddress::withPort(std::uint16_t port) const {
    SocketAddress address = *this;
    if (isIp6()) {
        reinterpret_cast<sockaddr_in6*>(&address.storage_)->sin6_port = htons(port);
    } else {
        reinterpret_cast<sockaddr_in*>(&address.storage_)->sin_port = htons(port);
    }
    return address;
}

std::string SocketAddress::extendedText() const {
    const Parts own = parts();
    return (isIp6() ? "|2|" : "|1|") + own.host + "|" + std::to_string(own.port) + "|";
}

std::string SocketAddress::text() const {
    const Parts own = parts();
    std::string host = own.host;
    std::replace(host.begin(), host.end(), '.', ',');
    return host + "," + std::to_string(own.port / 256) + "," + std::to_string(own.port % 256);
}

// The name of the network device behind "%" means nothing to the host.
SocketAddress::Parts SocketAddress::parts() const {
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{"0"};
    ::getnameinfo(get(), size_, host.data(), host.size(), port.data(), port.size(),
                  NI_NUMERICHOST | NI_NUMERICSERV);
    const std::string name(host.data());
    return {name.substr(0, name.find('%')), static_cast<unsigned>(std::stoul(port.data()))};
}

FileDescriptor SocketAddress::newSocket() const {
    return FileDescriptor(
        ::socket(storage_.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

bool SocketAddress::beginConnecting(const FileDescriptor& socket) const {
    return ::connect(socket.number(), get(), size_) == 0 || errno == EINPROGRESS;
}

bool SocketAddress::listenWith(const FileDescriptor& socket) const {
    return ::bind(socket.number(), get(), size_) == 0 && ::listen(socket.number(), 1) == 0;
}

const sockaddr* SocketAddress::get() const {
    return reinterpret_cast<const sockaddr*>(&storage_);
}

sockaddr* SocketAddress::get() {
    return reinterpret_cast<sockaddr*>(&storage_);
}

} // namespace quillmark

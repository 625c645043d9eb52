#pragma once

#include "platform/FileDescriptor.h"

#include <cstdint>
#include <string>

#include <sys/socket.h>

namespace quillmark {

/// An address and a port, IPv4 or IPv6.
class SocketAddress {
public:
    /// Of the other end of a connection.
    static SocketAddress ofPeer(const FileDescriptor& socket);
    /// Of this end of a connection, or of a socket that listens.
    static SocketAddress ofOwnEnd(const FileDescriptor& socket);

    SocketAddress withPort(std::uint16_t port) const;
    bool isIp6() const { return storage_.ss_family == AF_INET6; }

    /// As EPRT names it (RFC 2428): "|1|192.0.2.1|5000|".
    std::string extendedText() const;
    /// As PORT names it (RFC 959): "192,0,2,1,19,136". For IPv4 only.
    std::string text() const;

    /// A socket of its kind that does not block.
    FileDescriptor newSocket() const;
    /// Begins to connect the socket with this address.
    bool beginConnecting(const FileDescriptor& socket) const;
    /// Has the socket listen at this address.
    bool listenWith(const FileDescriptor& socket) const;

private:
    struct Parts {
        std::string host;
        unsigned port;
    };

    SocketAddress() = default;
    const sockaddr* get() const;
    sockaddr* get();
    Parts parts() const;

    sockaddr_storage storage_{};
    socklen_t size_ = sizeof(sockaddr_storage);
};

} // namespace quillmark

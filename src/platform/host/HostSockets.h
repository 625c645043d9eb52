#pragma once

#include "platform/curl/CurlHandle.h"

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace quillmark {

/// The sockets that libcurl has open for one connection with the host.
class HostSockets {
public:
    /// Follows the sockets of a handle from now on.
    void watch(CURL* easy);

    /// Has every read and write end at once. Only this may be called from any thread.
    void shutDown();
    /// The same; the control connection is of no use any more.
    void giveUp();

    /// An attempt at an operation begins.
    void begin() { openedAnew_ = control_ == None; }
    /// Whether a control connection was opened, or tried to be, since then.
    bool openedAnew() const { return openedAnew_; }
    /// The host has greeted: the socket that is open is the control connection.
    void established();
    /// Whether there is a control connection that the host has not closed.
    bool isAlive() const;
    /// The address of whoever opened the data connection in the place of the host, and was refused;
    /// empty if nobody did. Tells it once.
    std::string takeStranger() { return std::exchange(stranger_, {}); }

private:
    static constexpr curl_socket_t None = CURL_SOCKET_BAD;

    static int opened(void* sockets, curl_socket_t socket, curlsocktype purpose);
    static int closed(void* sockets, curl_socket_t socket);

    std::mutex mutex_; ///< Of what is open.
    std::vector<curl_socket_t> open_;
    curl_socket_t control_ = None;
    bool openedAnew_ = false;
    std::string stranger_;
};

} // namespace quillmark

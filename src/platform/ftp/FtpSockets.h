#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <curl/curl.h>

namespace quillmark {

/// The sockets that libcurl talks to the host through. libcurl waits for the reply at the end of a
/// transfer without giving control back; looking at the sockets from here tells when that reply is
/// there, so that libcurl is only let on when it need not wait.
class FtpSockets {
public:
    enum class Data { Waiting, Readable, Ended, Broken };

    /// Has the handle report its sockets here.
    void watch(CURL* easy);

    /// A new operation: it has no data connection yet.
    void forgetData() { data_ = None; }
    /// Whether a control connection was opened since the last call.
    bool takeOpenedAnew();
    /// The host sent `count` bytes of reply that libcurl has handed on.
    void heard(std::size_t count);

    /// Whether there is a control connection that nobody has closed.
    bool isAlive() const;
    bool hasData() const { return data_ != None; }
    Data dataState() const;
    /// Tells the host that its end of the data was seen: some send their last reply only then.
    void endData() const;
    /// Whether the host's last reply has come as a whole, or never will.
    bool lastReplyIsThere() const;

    void waitForData(std::chrono::milliseconds slice) const;
    void waitForReply(std::chrono::milliseconds slice) const;

    /// Cuts the control connection, so that libcurl has nobody left to say goodbye to.
    void hangUp() const;

private:
    static constexpr curl_socket_t None = CURL_SOCKET_BAD;

    static int opened(void* sockets, curl_socket_t socket, curlsocktype purpose);
    static int closed(void* sockets, curl_socket_t socket);
    void addSocket(curl_socket_t socket);
    void removeSocket(curl_socket_t socket);
    bool repliesAreHeld() const;

    std::vector<curl_socket_t> attempts_; ///< To connect, none of which has been greeted yet.
    curl_socket_t control_ = None;
    curl_socket_t data_ = None;
    bool openedAnew_ = false;
    std::uint64_t heardBytes_ = 0; ///< Of the replies on the control connection.
};

} // namespace quillmark

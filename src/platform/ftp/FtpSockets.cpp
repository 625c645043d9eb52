#include "platform/ftp/FtpSockets.h"

#include "platform/ftp/FtpReply.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <utility>

#include <linux/tcp.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillmark {

namespace {

void waitReadable(curl_socket_t socket, std::chrono::milliseconds slice) {
    pollfd entry{socket, POLLIN, 0};
    ::poll(&entry, 1, static_cast<int>(slice.count()));
}

bool wouldWait(ssize_t received) {
    return received < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
}

} // namespace

void FtpSockets::watch(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, &FtpSockets::opened);
    curl_easy_setopt(easy, CURLOPT_SOCKOPTDATA, this);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, &FtpSockets::closed);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
}

bool FtpSockets::takeOpenedAnew() {
    return std::exchange(openedAnew_, false);
}

// By the time of the greeting libcurl has closed all of its attempts but one.
void FtpSockets::heard(std::size_t count) {
    if (control_ == None && !attempts_.empty()) {
        control_ = attempts_.back();
        attempts_.clear();
        heardBytes_ = 0;
    }
    heardBytes_ += count;
}

bool FtpSockets::isAlive() const {
    char byte = 0;
    return control_ != None && ::recv(control_, &byte, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
}

FtpSockets::Data FtpSockets::dataState() const {
    char byte = 0;
    const ssize_t received = ::recv(data_, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    if (received > 0) {
        return Data::Readable;
    }
    if (received == 0) {
        return Data::Ended;
    }
    return wouldWait(received) ? Data::Waiting : Data::Broken;
}

void FtpSockets::endData() const {
    ::shutdown(data_, SHUT_WR);
}

bool FtpSockets::lastReplyIsThere() const {
    std::array<char, 4096> bytes{};
    const ssize_t received = ::recv(control_, bytes.data(), bytes.size(), MSG_PEEK | MSG_DONTWAIT);
    if (wouldWait(received)) {
        return repliesAreHeld();
    }
    if (received <= 0) {
        return true;
    }
    const auto count = static_cast<std::size_t>(received);
    return count == bytes.size() || holdsReply({bytes.data(), count}) || repliesAreHeld();
}

// libcurl reads replies in one go and keeps what it has no use for yet: it has taken more bytes
// from the socket than it has handed on then. A kernel that does not count them leaves the waiting
// to libcurl.
bool FtpSockets::repliesAreHeld() const {
    tcp_info info{};
    socklen_t length = sizeof info;
    int unread = 0;
    if (::getsockopt(control_, IPPROTO_TCP, TCP_INFO, &info, &length) != 0 ||
        length < offsetof(tcp_info, tcpi_bytes_received) + sizeof info.tcpi_bytes_received ||
        ::ioctl(control_, FIONREAD, &unread) != 0) {
        return true;
    }
    const std::uint64_t received = info.tcpi_bytes_received;
    return received - static_cast<std::uint64_t>(unread) > heardBytes_;
}

void FtpSockets::waitForData(std::chrono::milliseconds slice) const {
    waitReadable(data_, slice);
}

// Half a reply makes the socket readable for good: nothing is waited for on it then.
void FtpSockets::waitForReply(std::chrono::milliseconds slice) const {
    constexpr std::chrono::milliseconds Breath{5};
    int unread = 0;
    const bool begun = ::ioctl(control_, FIONREAD, &unread) == 0 && unread > 0;
    waitReadable(begun ? None : control_, begun ? Breath : slice);
}

void FtpSockets::hangUp() const {
    if (control_ != None) {
        ::shutdown(control_, SHUT_RDWR);
    }
}

int FtpSockets::opened(void* sockets, curl_socket_t socket, curlsocktype /*purpose*/) {
    static_cast<FtpSockets*>(sockets)->addSocket(socket);
    return CURL_SOCKOPT_OK;
}

int FtpSockets::closed(void* sockets, curl_socket_t socket) {
    static_cast<FtpSockets*>(sockets)->removeSocket(socket);
    return ::close(socket);
}

void FtpSockets::addSocket(curl_socket_t socket) {
    if (control_ != None) {
        data_ = socket;
        return;
    }
    attempts_.push_back(socket);
    openedAnew_ = true;
}

void FtpSockets::removeSocket(curl_socket_t socket) {
    attempts_.erase(std::remove(attempts_.begin(), attempts_.end(), socket), attempts_.end());
    if (socket == control_) {
        control_ = None;
    }
    if (socket == data_) {
        data_ = None;
    }
}

} // namespace quillmark

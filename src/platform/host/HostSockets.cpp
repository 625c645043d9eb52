#include "platform/host/HostSockets.h"

#include <array>

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quillmark {

namespace {

/// The address of the other end, in figures.
std::string peerOf(curl_socket_t socket) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    auto* const any = reinterpret_cast<sockaddr*>(&address);
    std::array<char, NI_MAXHOST> host{};
    if (::getpeername(socket, any, &size) != 0 ||
        ::getnameinfo(any, size, host.data(), host.size(), nullptr, 0, NI_NUMERICHOST) != 0) {
        return "an unknown address";
    }
    return host.data();
}

} // namespace

void HostSockets::watch(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, &HostSockets::opened);
    curl_easy_setopt(easy, CURLOPT_SOCKOPTDATA, this);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, &HostSockets::closed);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
}

// By the time of the greeting libcurl has closed all of its attempts but one.
void HostSockets::established() {
    control_ = control_ == None && !open_.empty() ? open_.back() : control_;
}

bool HostSockets::isAlive() const {
    char byte = 0;
    return control_ != None && ::recv(control_, &byte, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
}

void HostSockets::shutDown() {
    const std::lock_guard lock(mutex_);
    for (const curl_socket_t socket : open_) {
        ::shutdown(socket, SHUT_RDWR);
    }
}

void HostSockets::giveUp() {
    shutDown();
    control_ = None;
}

// In active mode anybody can reach the port that waits for the host.
int HostSockets::opened(void* sockets, curl_socket_t socket, curlsocktype purpose) {
    HostSockets& self = *static_cast<HostSockets*>(sockets);
    const std::lock_guard lock(self.mutex_);
    self.open_.push_back(socket);
    self.openedAnew_ = self.openedAnew_ || self.control_ == None;
    if (purpose == CURLSOCKTYPE_ACCEPT && peerOf(socket) != peerOf(self.control_)) {
        self.stranger_ = peerOf(socket);
        return CURL_SOCKOPT_ERROR;
    }
    return CURL_SOCKOPT_OK;
}

int HostSockets::closed(void* sockets, curl_socket_t socket) {
    HostSockets& self = *static_cast<HostSockets*>(sockets);
    const std::lock_guard lock(self.mutex_);
    std::erase(self.open_, socket);
    if (socket == self.control_) {
        self.control_ = None;
    }
    return ::close(socket);
}

} // namespace quillmark

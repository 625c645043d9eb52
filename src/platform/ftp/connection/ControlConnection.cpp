#include "platform/ftp/connection/ControlConnection.h"

#include "platform/ftp/connection/FtpFailures.h"

#include <algorithm>
#include <array>
#include <utility>

#include <sys/socket.h>

namespace quillmark {

namespace {

constexpr int Goodbye = 421;

std::string tracedCommand(const std::string& command) {
    return command.starts_with("PASS ") ? "PASS" : command;
}

} // namespace

ControlConnection::ControlConnection(FileDescriptor socket, std::string password, HostWait& wait,
                                     FtpTrace& trace)
    : socket_(std::move(socket)), password_(std::move(password)), wait_(wait), trace_(trace) {}

bool ControlConnection::isAlive() const {
    char byte = 0;
    return ::recv(socket_.number(), &byte, 1, MSG_PEEK | MSG_DONTWAIT) != 0;
}

void ControlConnection::send(const std::string& command) {
    trace_.Trace(tracedCommand(command));
    wait_.startForReply();
    const std::string line = command + "\r\n";
    for (std::string_view left = line; !left.empty();) {
        const ssize_t sent = ::send(socket_.number(), left.data(), left.size(), MSG_NOSIGNAL);
        if (sent < 0 && !mustWait()) {
            throw closedByHost();
        }
        if (sent < 0) {
            wait_.untilWritable(socket_.number());
        } else {
            left.remove_prefix(static_cast<std::size_t>(sent));
        }
    }
}

FtpReply ControlConnection::ask(const std::string& command) {
    send(command);
    return reply();
}

FtpReply ControlConnection::reply() {
    for (;;) {
        if (std::optional<FtpReply> reply = replyIfThere()) {
            return *reply;
        }
        wait_.untilReadable(socket_.number());
    }
}

std::optional<FtpReply> ControlConnection::replyIfThere() {
    do {
        while (const std::optional<std::string> line = takeLine()) {
            if (std::optional<FtpReply> reply = take(*line)) {
                return reply;
            }
        }
    } while (receive());
    return std::nullopt;
}

std::optional<std::string> ControlConnection::takeLine() {
    const std::size_t end = received_.find('\n');
    if (std::min(end, received_.size()) > LongestLine || replySize_ > LongestReply) {
        throw senselessReply();
    }
    if (end == std::string::npos) {
        return std::nullopt;
    }
    std::string line = received_.substr(0, end);
    received_.erase(0, end + 1);
    return line;
}

/// Returns whether there was something to read.
bool ControlConnection::receive() {
    std::array<char, 4096> bytes{};
    const ssize_t count = ::recv(socket_.number(), bytes.data(), bytes.size(), 0);
    if (count == 0 || (count < 0 && !mustWait())) {
        throw closedByHost();
    }
    if (count < 0) {
        return false;
    }
    received_.append(bytes.data(), static_cast<std::size_t>(count));
    wait_.breathe();
    return true;
}

std::optional<FtpReply> ControlConnection::take(const std::string& line) {
    const std::string text = withoutPassword(line, password_);
    trace_.Trace(text);
    replySize_ += line.size() + 1;
    const int code = finalCode(line);
    if (openCode_ == 0) {
        openCode_ = firstCode(line);
    }
    if (code == 0 || (openCode_ != 0 && openCode_ != code)) {
        return std::nullopt;
    }
    openCode_ = 0;
    replySize_ = 0;
    if (code == Goodbye) {
        throw ConnectionLost(text);
    }
    return FtpReply{code, text};
}

} // namespace quillmark

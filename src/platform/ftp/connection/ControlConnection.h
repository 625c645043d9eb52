#pragma once

#include "platform/FileDescriptor.h"
#include "platform/ftp/connection/FtpReply.h"
#include "platform/ftp/connection/FtpTrace.h"
#include "platform/ftp/connection/HostWait.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// Commands and replies (RFC 959), each of which the trace gets when it passes. Throws
/// ConnectionLost when the host has closed, falls silent or says goodbye (421).
class ControlConnection {
public:
    /// A reply with a longer line, or with more bytes in all its lines, is given up.
    static constexpr std::size_t LongestLine = std::size_t{64} * 1024;
    static constexpr std::size_t LongestReply = std::size_t{1024} * 1024;

    /// `password` is what no trace and no reply may show.
    ControlConnection(FileDescriptor socket, std::string password, HostWait& wait, FtpTrace& trace);

    const FileDescriptor& socket() const { return socket_; }
    /// Whether nobody has closed it.
    bool isAlive() const;

    void send(const std::string& command);
    /// Waits for the next reply.
    FtpReply reply();
    /// The next reply if it has come already.
    std::optional<FtpReply> replyIfThere();
    /// Sends a command and waits for its reply.
    FtpReply ask(const std::string& command);

private:
    std::optional<std::string> takeLine();
    bool receive();
    std::optional<FtpReply> take(const std::string& line);

    FileDescriptor socket_;
    std::string password_;
    HostWait& wait_;
    FtpTrace& trace_;
    std::string received_;      ///< Not taken as a line yet.
    int openCode_ = 0;          ///< Of the reply of several lines that has begun.
    std::size_t replySize_ = 0; ///< Bytes of the lines of the reply so far.
};

} // namespace quillmark

#pragma once

#include "platform/ftp/connection/ActiveMode.h"
#include "platform/ftp/connection/ControlConnection.h"
#include "platform/ftp/connection/DataConnection.h"
#include "platform/ftp/connection/FtpTrace.h"
#include "platform/ftp/connection/HostWait.h"
#include "platform/ftp/connection/PassiveMode.h"
#include "run/FtpComponent.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// One control connection, from its greeting on, and the transfers that it asks for (RFC 959). Its
/// functions throw Stopped and ConnectionLost; the session is over then.
class FtpSession {
public:
    /// Takes the next bytes of a transfer; false ends it.
    using Taker = std::function<bool(std::string_view bytes)>;
    enum class Type : char { Text = 'A', Binary = 'I' };

    /// `socket` is connected with the host, which has not been heard yet; `ahead` is whether the
    /// host may be asked for the port of the next transfer before the last reply to this one.
    FtpSession(FileDescriptor socket, const FtpLogin& login, bool ahead, HostWait& wait,
               FtpTrace& trace);
    FtpSession(const FtpSession&) = delete;
    FtpSession& operator=(const FtpSession&) = delete;

    /// Hears the greeting and logs in.
    void logIn(const FtpLogin& login);
    /// Sends a command without a transfer; returns its reply.
    FtpReply command(const std::string& text);
    /// Sends a command with a transfer; returns the last reply, or the one that refused it.
    FtpReply transfer(Type type, const std::string& command, const Taker& take);
    /// Says goodbye and does not wait long for an answer.
    void sayGoodbye();

    bool isAlive() const { return control_.isAlive(); }
    /// Whether the host has not answered yet what was sent ahead.
    bool hasAskedAhead() const { return passive_.hasAskedAhead(); }

private:
    std::optional<FtpReply> setType(Type type);
    std::optional<FtpReply> receive(DataConnection& data, const Taker& take);
    void handOver(std::string_view bytes, const Taker& take);
    FtpReply lastReply(bool prepareNext);

    HostWait& wait_;
    ControlConnection control_;
    PassiveMode passive_;
    ActiveMode active_;
    bool isActive_;
    std::optional<Type> type_; ///< That the host was told last.
    std::vector<char> room_;   ///< For the bytes of a transfer.
};

} // namespace quillmark

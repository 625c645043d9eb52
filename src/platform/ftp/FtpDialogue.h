#pragma once

#include "platform/ftp/connection/FtpSession.h"
#include "platform/ftp/connection/FtpTimeouts.h"
#include "platform/ftp/connection/FtpTrace.h"
#include "platform/ftp/connection/HostWait.h"
#include "run/EventLoop.h"
#include "run/FtpComponent.h"
#include "run/RunState.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace quillmark {

/// How an operation went.
struct FtpOutcome {
    enum class Kind {
        Done,
        Refused, ///< The host said no, and the conversation goes on.
        Broken,  ///< The data connection failed, and the conversation goes on.
        Lost,    ///< No connection, no login, or the host fell silent.
        Ended,   ///< By Stop, or by the taker of the bytes.
    };
    Kind kind = Kind::Done;
    std::string reason;      ///< Why it was refused or lost; never holds the password.
    bool openedAnew = false; ///< The control connection was opened for this operation.
    bool loggedIn = false;   ///< The login of the control connection had succeeded.
};

/// The operations of one host, over one control connection. It logs in by itself when there is
/// none, and yields to the event loop while it waits. What a taker of bytes throws passes through;
/// the connection is given up then, as it is when an operation ends early.
class FtpDialogue {
public:
    FtpDialogue(EventLoop& events, const RunState& state, FtpTrace& trace,
                const FtpTimeouts& timeouts);

    /// Whom the next operations talk to, and as whom. Throws a Failure when the host is none.
    void setLogin(const FtpLogin& login);

    /// Logs in and does no more.
    FtpOutcome logIn();
    /// A command without a transfer.
    FtpOutcome command(const std::string& text);
    /// A long listing, of the current directory when the directory is empty.
    FtpOutcome list(std::string_view directory, const FtpSession::Taker& take);
    /// A file in binary.
    FtpOutcome retrieve(std::string_view file, const FtpSession::Taker& take);

    /// Ends the connection, with a goodbye where there is somebody to hear it.
    void close();

private:
    using Operation = std::function<FtpReply(FtpSession& session)>;

    FtpOutcome perform(const Operation& operation);
    std::unique_ptr<FtpSession> newSession();

    FtpTrace& trace_;
    HostWait wait_;
    FtpLogin login_;
    std::string url_;
    bool ahead_ = true; ///< Off for good once a host could not take it.
    std::unique_ptr<FtpSession> session_;
};

} // namespace quillmark

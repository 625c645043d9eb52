#pragma once

#include "engine/outside/EventLoop.h"
#include "engine/outside/FtpComponent.h"
#include "engine/run/RunState.h"
#include "platform/curl/CurlHandle.h"
#include "platform/ftp/ConversationClock.h"
#include "platform/ftp/FtpReply.h"
#include "platform/ftp/FtpRequest.h"
#include "platform/ftp/FtpSockets.h"
#include "platform/ftp/FtpTimeouts.h"
#include "platform/ftp/FtpTrace.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

/// The conversation over one control connection, driven by libcurl. It logs in by itself when there
/// is no connection, and yields to the event loop while it waits.
class FtpConversation {
public:
    /// Takes the next bytes of a transfer; false ends it.
    using Taker = std::function<bool(std::string_view bytes)>;

    FtpConversation(EventLoop& events, const RunState& state, FtpTrace& trace,
                    const FtpTimeouts& timeouts);
    ~FtpConversation();
    FtpConversation(const FtpConversation&) = delete;
    FtpConversation& operator=(const FtpConversation&) = delete;

    /// Whom the next operations talk to, and as whom.
    void setLogin(const FtpLogin& login);

    /// Performs one operation. What `take` throws passes through; the connection is given up then,
    /// as it is when an operation ends early.
    FtpOutcome perform(const FtpRequest& request, const Taker& take);
    /// Whether there is a connection that the host has not closed.
    bool isOpen() const { return sockets_.isAlive(); }
    /// Closes the connection without a word; the next operation opens a new one.
    void hangUp() const { sockets_.hangUp(); }

private:
    static int follow(CURL* easy, curl_infotype type, char* data, std::size_t size, void* self);
    static std::size_t discard(char* data, std::size_t size, std::size_t count, void* self);

    void prepare(const FtpRequest& request);
    FtpOutcome talk(const Taker& take);
    bool mayGoOn();
    void noticeEndOfData(FtpSockets::Data state);
    bool handOver(const Taker& take);
    bool finished();
    void wait();
    bool transferIsOpen() const { return transferring_ && sockets_.hasData(); }
    FtpOutcome outcomeOf(CURLcode code) const;
    FtpOutcome lost(CURLcode code) const;

    void sent(std::string_view command);
    void heard(std::string_view line);
    void answered();
    void hold();

    EventLoop& events_;
    const RunState& state_;
    FtpTrace& trace_;
    ConversationClock clock_;
    FtpSockets sockets_;
    CurlMulti multi_;
    CurlEasy easy_;

    std::string password_;
    std::vector<std::string> traced_; ///< Not handed to the trace yet.
    std::string received_;            ///< Not handed to the taker yet.
    FtpReply reply_;                  ///< To the last command.
    CURLcode code_ = CURLE_OK;
    bool wantsTransfer_ = false;
    bool loggedIn_ = false;
    bool transferring_ = false; ///< The host has announced the transfer.
    bool dataEnded_ = false;
    bool dataBroken_ = false;
    bool nothingToWaitFor_ = false; ///< libcurl has something to do at once.
};

} // namespace quillmark

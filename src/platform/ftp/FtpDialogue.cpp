#include "platform/ftp/FtpDialogue.h"

#include "platform/ftp/connection/FtpFailures.h"
#include "platform/ftp/connection/HostAddress.h"

#include <utility>

namespace quillmark {

namespace {

using Kind = FtpOutcome::Kind;

/// Hosts would read a leading "-" as the switches of a listing.
std::string listCommand(std::string_view directory) {
    std::string command = "LIST";
    if (!directory.empty()) {
        command.append(directory.front() == '-' ? " ./" : " ").append(directory);
    }
    return command;
}

Kind kindOf(const FtpReply& reply) {
    constexpr int NoDataConnection = 425;
    constexpr int DataConnectionClosed = 426;
    if (!reply.negative()) {
        return Kind::Done;
    }
    const bool broken = reply.code == NoDataConnection || reply.code == DataConnectionClosed;
    return broken ? Kind::Broken : Kind::Refused;
}

} // namespace

FtpDialogue::FtpDialogue(EventLoop& events, const RunState& state, FtpTrace& trace,
                         const FtpTimeouts& timeouts)
    : trace_(trace), wait_(events, state, timeouts) {}

void FtpDialogue::setLogin(const FtpLogin& login) {
    session_.reset();
    url_ = hostUrl(login);
    login_ = login;
}

FtpOutcome FtpDialogue::logIn() {
    return perform([](FtpSession& /*session*/) { return FtpReply(); });
}

FtpOutcome FtpDialogue::command(const std::string& text) {
    return perform([&](FtpSession& session) { return session.command(text); });
}

FtpOutcome FtpDialogue::list(std::string_view directory, const FtpSession::Taker& take) {
    return perform([&](FtpSession& session) {
        return session.transfer(FtpSession::Type::Text, listCommand(directory), take);
    });
}

FtpOutcome FtpDialogue::retrieve(std::string_view file, const FtpSession::Taker& take) {
    return perform([&](FtpSession& session) {
        return session.transfer(FtpSession::Type::Binary, std::string("RETR ").append(file), take);
    });
}

void FtpDialogue::close() {
    if (session_ && session_->isAlive()) {
        perform([](FtpSession& session) {
            session.sayGoodbye();
            return FtpReply();
        });
    }
    session_.reset();
}

// Keeps the session only after a good end: whatever else ends the operation ends the session, too.
FtpOutcome FtpDialogue::perform(const Operation& operation) {
    FtpOutcome outcome;
    std::unique_ptr<FtpSession> session = std::move(session_);
    outcome.openedAnew = session == nullptr;
    outcome.loggedIn = session != nullptr;
    try {
        wait_.breathe();
        if (!session) {
            session = newSession();
            session->logIn(login_);
            outcome.loggedIn = true;
        }
        const FtpReply reply = operation(*session);
        outcome.kind = kindOf(reply);
        outcome.reason = reply.text;
        session_ = std::move(session);
    } catch (const Stopped&) {
        outcome.kind = Kind::Ended;
    } catch (const ConnectionLost& loss) {
        outcome.kind = Kind::Lost;
        outcome.reason = loss.what();
        ahead_ = ahead_ && !(session && session->hasAskedAhead());
    }
    return outcome;
}

std::unique_ptr<FtpSession> FtpDialogue::newSession() {
    return std::make_unique<FtpSession>(connectToHost(url_, wait_), login_, ahead_, wait_, trace_);
}

} // namespace quillmark

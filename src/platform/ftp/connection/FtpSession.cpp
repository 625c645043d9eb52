#include "platform/ftp/connection/FtpSession.h"

#include "platform/ftp/connection/FtpFailures.h"

#include <cstddef>
#include <utility>

namespace quillmark {

namespace {

constexpr std::size_t RoomSize = std::size_t{64} * 1024;

constexpr int Ready = 220;
constexpr int Complete = 226;
constexpr int PasswordNeeded = 331;
constexpr int AccountNeeded = 332;
constexpr int NothingFound = 450;

} // namespace

FtpSession::FtpSession(FileDescriptor socket, const FtpLogin& login, bool ahead, HostWait& wait,
                       FtpTrace& trace)
    : wait_(wait), control_(std::move(socket), login.password, wait, trace),
      passive_(control_, wait, ahead), active_(control_), isActive_(login.passiveDisabled),
      room_(RoomSize) {}

void FtpSession::logIn(const FtpLogin& login) {
    FtpReply reply = control_.reply();
    while (reply.announces()) {
        reply = control_.reply();
    }
    if (reply.code == Ready) {
        reply = control_.ask("USER " + (login.userName.empty() ? "anonymous" : login.userName));
    }
    if (reply.code == PasswordNeeded) {
        reply = control_.ask("PASS " + login.password);
    }
    if (reply.code == AccountNeeded && !login.account.empty()) {
        reply = control_.ask("ACCT " + login.account);
    }
    if (!reply.positive()) {
        throw ConnectionLost(reply.text);
    }
}

FtpReply FtpSession::command(const std::string& text) {
    passive_.settle();
    return control_.ask(text);
}

void FtpSession::sayGoodbye() {
    control_.send("QUIT");
    wait_.startForGoodbye();
    if (passive_.hasAskedAhead()) {
        control_.reply();
    }
    control_.reply();
}

// Some hosts refuse to list an empty directory: that is an empty listing, not a failure.
FtpReply FtpSession::transfer(Type type, const std::string& command, const Taker& take) {
    passive_.settle();
    if (const std::optional<FtpReply> refusal = setType(type)) {
        return *refusal;
    }
    std::optional<DataConnection> data(isActive_ ? active_.open() : passive_.open());
    FtpReply first = control_.ask(command);
    if (first.code == NothingFound && type == Type::Text) {
        return {Complete, first.text};
    }
    if (first.negative()) {
        return first;
    }
    if (!first.announces()) {
        throw senselessReply();
    }
    const std::optional<FtpReply> early = receive(*data, take);
    const DataConnection::State end = data->state();
    data.reset();
    FtpReply last = early ? *early : lastReply(end == DataConnection::State::Ended);
    if (end == DataConnection::State::Broken && last.positive()) {
        throw closedByHost();
    }
    return last;
}

std::optional<FtpReply> FtpSession::setType(Type type) {
    if (type_ == type) {
        return std::nullopt;
    }
    const FtpReply reply = control_.ask(std::string("TYPE ") + static_cast<char>(type));
    if (!reply.positive()) {
        return reply;
    }
    type_ = type;
    return std::nullopt;
}

/// Receives the data to its end, or until the host refuses the transfer. Returns the last reply if
/// it came early.
std::optional<FtpReply> FtpSession::receive(DataConnection& data, const Taker& take) {
    std::optional<FtpReply> last;
    wait_.startForByte();
    while (data.state() == DataConnection::State::Open && !(last && last->negative())) {
        const std::string_view bytes = data.receive(room_);
        if (!bytes.empty()) {
            handOver(bytes, take);
        } else if (data.state() == DataConnection::State::Open) {
            wait_.untilReadable(data.socket().number(),
                                last ? HostWait::NoSocket : control_.socket().number());
            last = last ? last : control_.replyIfThere();
        }
    }
    return last;
}

void FtpSession::handOver(std::string_view bytes, const Taker& take) {
    wait_.startForByte();
    if (!take(bytes)) {
        throw Stopped();
    }
    wait_.breathe();
}

// A refusal may answer the command that was sent ahead; only the reply after it tells.
FtpReply FtpSession::lastReply(bool prepareNext) {
    if (prepareNext && !isActive_) {
        passive_.askAhead();
    }
    wait_.startForReply();
    FtpReply last = control_.reply();
    if (last.negative()) {
        passive_.settle();
    }
    return last;
}

} // namespace quillmark

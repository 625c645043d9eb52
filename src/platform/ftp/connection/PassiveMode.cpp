#include "platform/ftp/connection/PassiveMode.h"

#include "platform/ftp/connection/FtpFailures.h"

#include <utility>

namespace quillmark {

DataConnection PassiveMode::open() {
    if (auto data = reach(std::exchange(kept_, std::nullopt))) {
        return std::move(*data);
    }
    if (extended_) {
        if (auto data = reach(portIn(control_.ask("EPSV")))) {
            return std::move(*data);
        }
        extended_ = false;
    }
    if (auto data = reach(passivePort())) {
        return std::move(*data);
    }
    throw cannotConnect();
}

std::optional<DataConnection> PassiveMode::reach(std::optional<std::uint16_t> port) {
    if (!port) {
        return std::nullopt;
    }
    DataConnection data =
        DataConnection::to(SocketAddress::ofPeer(control_.socket()).withPort(*port));
    if (data.state() == DataConnection::State::Open) {
        wait_.startForConnection();
        wait_.untilWritable(data.socket().number());
    }
    data.noticeFailure();
    if (data.state() == DataConnection::State::Broken) {
        return std::nullopt;
    }
    return data;
}

std::uint16_t PassiveMode::passivePort() {
    const FtpReply reply = control_.ask("PASV");
    const std::optional<std::uint16_t> port = portIn(reply);
    if (!port) {
        throw reply.negative() ? ConnectionLost(reply.text) : senselessReply();
    }
    return *port;
}

void PassiveMode::askAhead() {
    if (ahead_) {
        control_.send(extended_ ? "EPSV" : "PASV");
        askedAhead_ = true;
    }
}

void PassiveMode::settle() {
    if (!askedAhead_) {
        return;
    }
    wait_.startForReplyAhead();
    const FtpReply reply = control_.reply();
    kept_ = portIn(reply);
    if (!kept_ && !reply.negative()) {
        throw senselessReply();
    }
    askedAhead_ = false;
}

} // namespace quillmark

#include "platform/ftp/connection/ActiveMode.h"

#include "platform/ftp/connection/FtpFailures.h"

namespace quillmark {

DataConnection ActiveMode::open() {
    DataConnection data = DataConnection::at(SocketAddress::ofOwnEnd(control_.socket()));
    if (data.state() == DataConnection::State::Broken) {
        throw cannotConnect();
    }
    const SocketAddress address = SocketAddress::ofOwnEnd(data.socket());
    if (extended_) {
        const FtpReply reply = control_.ask("EPRT " + address.extendedText());
        if (reply.positive()) {
            return data;
        }
        if (address.isIp6()) {
            throw ConnectionLost(reply.text);
        }
        extended_ = false;
    }
    const FtpReply reply = control_.ask("PORT " + address.text());
    if (!reply.positive()) {
        throw ConnectionLost(reply.text);
    }
    return data;
}

} // namespace quillmark

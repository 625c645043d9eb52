#pragma once

#include "base/Failure.h"

#include <string>

namespace quillmark {

/// A connection with the host that was lost and could not be had again.
inline Failure hostConnectionLost(const std::string& reason) {
    return {1020, "Connection to the host lost: " + reason};
}
/// The host said no; `reply` is its own wording.
inline Failure refusedByHost(const std::string& reply) {
    return {1021, "Refused by the host: " + reply};
}
/// A text that would be more than one command on its way to the host.
inline Failure unsendableText() {
    return {1022, "A text with a line break or a zero byte cannot be sent to the host"};
}
/// A host name or port that no connection can be made with.
inline Failure notAHost(const std::string& detail) {
    return {1023, "Not a host: " + detail};
}
/// A deletion that may or may not have happened, since nobody waited for the answer.
inline Failure stoppedByUser() {
    return {1024, "Stopped before the host answered"};
}
/// TLS with data connections that the host opens; libcurl would wait for them in vain.
inline Failure activeOverTls() {
    return {1026, "With TLS the host cannot open the data connections: leave PASV enabled"};
}

} // namespace quillmark

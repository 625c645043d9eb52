#include "platform/host/HostFailures.h"

namespace quillmark {

Failure hostConnectionLost(const std::string& reason) {
    return {1020, "Connection to the host lost: " + reason};
}
Failure refusedByHost(const std::string& reply) {
    return {1021, "Refused by the host: " + reply};
}
Failure unsendableText() {
    return {1022, "A text with a line break or a zero byte cannot be sent to the host"};
}
Failure notAHost(const std::string& detail) {
    return {1023, "Not a host: " + detail};
}
Failure stoppedByUser() {
    return {1024, "Stopped before the host answered"};
}
Failure activeOverTls() {
    return {1026, "With TLS the host cannot open the data connections: leave PASV enabled"};
}

} // namespace quillmark

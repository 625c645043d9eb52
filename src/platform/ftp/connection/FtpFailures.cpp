#include "platform/ftp/connection/FtpFailures.h"

#include <curl/curl.h>

namespace quillmark {

ConnectionLost hostIsSilent() {
    return ConnectionLost{curl_easy_strerror(CURLE_OPERATION_TIMEDOUT)};
}
ConnectionLost cannotConnect() {
    return ConnectionLost{curl_easy_strerror(CURLE_COULDNT_CONNECT)};
}
ConnectionLost closedByHost() {
    return ConnectionLost{curl_easy_strerror(CURLE_RECV_ERROR)};
}
ConnectionLost senselessReply() {
    return ConnectionLost{curl_easy_strerror(CURLE_WEIRD_SERVER_REPLY)};
}
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

} // namespace quillmark

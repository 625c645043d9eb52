#include "platform/ftp/connection/ConnectionLost.h"

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

} // namespace quillmark

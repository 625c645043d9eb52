#include "platform/http/WebAddress.h"

#include "base/UpperCase.h"
#include "platform/http/WebFailure.h"

namespace quillmark {

WebAddress::WebAddress(const std::string& text) : url_(curl_url()) {
    if (text.find('\0') != std::string::npos) {
        throw noAnswerFromTheWeb(curl_url_strerror(CURLUE_MALFORMED_INPUT));
    }
    const CURLUcode code =
        curl_url_set(url_.get(), CURLUPART_URL, text.c_str(), CURLU_URLENCODE | CURLU_ALLOW_SPACE);
    if (code != CURLUE_OK) {
        throw noAnswerFromTheWeb(curl_url_strerror(code));
    }
}

std::string WebAddress::host() const {
    char* part = nullptr;
    if (curl_url_get(url_.get(), CURLUPART_HOST, &part, 0) != CURLUE_OK) {
        return {};
    }
    const CurlText name(part);
    return upperAscii(name.get());
}

} // namespace quillmark

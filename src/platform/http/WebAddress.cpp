#include "platform/http/WebAddress.h"

#include "base/UpperCase.h"

namespace quillmark {

std::optional<WebAddress> WebAddress::parse(const std::string& text) {
    WebAddress address{CurlUrl(curl_url())};
    const CURLUcode code = curl_url_set(address.handle(), CURLUPART_URL, text.c_str(),
                                        CURLU_URLENCODE | CURLU_ALLOW_SPACE);
    const std::string scheme = address.part(CURLUPART_SCHEME);
    // libcurl reads a text only up to a zero byte.
    if (code != CURLUE_OK || text.find('\0') != std::string::npos ||
        (scheme != "http" && scheme != "https")) {
        return std::nullopt;
    }
    return address;
}

std::string WebAddress::host() const {
    return upperAscii(part(CURLUPART_HOST));
}

std::string WebAddress::comparable() const {
    const std::string query = part(CURLUPART_QUERY);
    return part(CURLUPART_SCHEME) + "://" + host() + ":" + part(CURLUPART_PORT) +
           part(CURLUPART_PATH) + (query.empty() ? "" : "?" + query);
}

std::string WebAddress::part(CURLUPart which) const {
    char* text = nullptr;
    if (curl_url_get(url_.get(), which, &text, CURLU_DEFAULT_PORT) != CURLUE_OK) {
        return {};
    }
    return CurlText(text).get();
}

} // namespace quillmark

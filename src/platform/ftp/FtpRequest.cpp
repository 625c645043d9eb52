#include "platform/ftp/FtpRequest.h"

#include "platform/curl/CurlHandle.h"
#include "platform/ftp/FtpFailures.h"

#include <algorithm>

namespace quillmark {

namespace {

/// Every byte but letters and digits in hex: the path comes out of the URL as it went in.
std::string percentEncoded(std::string_view path) {
    constexpr std::string_view Hex = "0123456789ABCDEF";
    std::string encoded;
    encoded.reserve(path.size() * 3);
    for (const char byte : path) {
        const auto code = static_cast<unsigned char>(byte);
        if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
            (byte >= '0' && byte <= '9')) {
            encoded += byte;
        } else {
            encoded += '%';
            encoded += Hex[code / Hex.size()];
            encoded += Hex[code % Hex.size()];
        }
    }
    return encoded;
}

bool isControl(char byte) {
    return byte >= 0 && byte < ' ';
}

/// libcurl refuses control bytes in a URL, and lists what ends in "/" instead of retrieving it.
bool urlCanName(std::string_view file) {
    return !file.empty() && file.back() != '/' && std::none_of(file.begin(), file.end(), isControl);
}

/// A "-" in front would be read as the switches of a listing.
std::string listArgument(std::string_view directory) {
    return (directory.front() == '-' ? "./" : "") + std::string(directory);
}

std::string bracketed(const std::string& host) {
    const bool bareIp6 = host.find(':') != std::string::npos && host.front() != '[';
    return bareIp6 ? "[" + host + "]" : host;
}

} // namespace

bool isSendable(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

std::string hostUrl(const FtpLogin& login) {
    const CurlUrl url(curl_url());
    curl_url_set(url.get(), CURLUPART_SCHEME, "ftp", 0);
    CURLUcode code = curl_url_set(url.get(), CURLUPART_HOST, bracketed(login.host).c_str(), 0);
    if (code == CURLUE_OK) {
        code = curl_url_set(url.get(), CURLUPART_PORT, std::to_string(login.port).c_str(), 0);
    }
    char* text = nullptr;
    if (code == CURLUE_OK) {
        code = curl_url_get(url.get(), CURLUPART_URL, &text, 0);
    }
    const CurlText owned(text);
    if (code != CURLUE_OK) {
        throw notAHost(curl_url_strerror(code));
    }
    return text;
}

FtpRequest loginRequest(const std::string& hostUrl) {
    return {hostUrl, {}, false, {}};
}

// libcurl drops the connection after a refused command unless "*" says that it may be refused.
FtpRequest commandRequest(const std::string& hostUrl, const std::string& command) {
    return {hostUrl, {"*" + command}, false, {}};
}

FtpRequest listRequest(const std::string& hostUrl, std::string_view directory) {
    return {hostUrl, {}, true, directory.empty() ? "LIST" : "LIST " + listArgument(directory)};
}

FtpRequest retrieveRequest(const std::string& hostUrl, std::string_view file) {
    if (urlCanName(file)) {
        return {hostUrl + percentEncoded(file), {}, true, {}};
    }
    return {hostUrl, {"TYPE I"}, true, "RETR " + std::string(file)};
}

} // namespace quillmark

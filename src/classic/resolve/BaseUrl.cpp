#include "classic/resolve/BaseUrl.h"

#include "base/UpperCase.h"

namespace quillmark {

namespace {

constexpr std::size_t ShortestName = 4;

std::string address(std::string_view server) {
    return "http://" + std::string(server) + "/";
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

BaseUrl computeBaseUrl(std::string_view hostName) {
    if (hostName.empty()) {
        return {address(hostName), false};
    }
    // A numeric address has no "ftp" to replace.
    if (isDigit(hostName.front())) {
        return {address(hostName), true};
    }
    if (hostName.size() < ShortestName) {
        return {address(hostName), false};
    }
    if (upperAscii(hostName.substr(0, 3)) == "FTP") {
        return {address("www" + std::string(hostName.substr(3))), true};
    }
    return {address(hostName), true};
}

} // namespace quillmark

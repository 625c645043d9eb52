#include "platform/host/HostReply.h"

#include <algorithm>
#include <cctype>

namespace quillmark {

namespace {

constexpr std::size_t CodeDigits = 3;

constexpr std::string_view Mask = "***";
constexpr std::size_t LongestOfChance = 3; ///< Shorter passwords match by chance.

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isLetterOrDigit(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) != 0;
}

bool isWord(std::string_view text, std::size_t at, std::size_t length) {
    const std::size_t end = at + length;
    return (at == 0 || !isLetterOrDigit(text[at - 1])) &&
           (end == text.size() || !isLetterOrDigit(text[end]));
}

} // namespace

int finalCode(std::string_view line) {
    if (line.size() <= CodeDigits || line[CodeDigits] != ' ' ||
        !std::all_of(line.begin(), line.begin() + CodeDigits, isDigit)) {
        return 0;
    }
    return (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
}

std::string withoutPassword(std::string_view line, std::string_view password) {
    std::string text(line.substr(0, line.find_last_not_of("\r\n") + 1));
    if (password.empty()) {
        return text;
    }
    std::size_t at = text.find(password);
    while (at != std::string::npos) {
        const bool echoed = password.size() > LongestOfChance || isWord(text, at, password.size());
        text.replace(at, password.size(), echoed ? Mask : password);
        at = text.find(password, at + (echoed ? Mask : password).size());
    }
    return text;
}

} // namespace quillmark

#include "platform/ftp/connection/FtpReply.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace quillmark {

namespace {

constexpr std::size_t CodeDigits = 3;

constexpr std::string_view Mask = "***";
constexpr std::size_t LongestOfChance = 3; ///< Shorter passwords match by chance.

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isLetterOrDigit(char byte) {
    return isDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

bool isWord(std::string_view text, std::size_t at, std::size_t length) {
    const std::size_t end = at + length;
    return (at == 0 || !isLetterOrDigit(text[at - 1])) &&
           (end == text.size() || !isLetterOrDigit(text[end]));
}

int codeBefore(char separator, std::string_view line) {
    if (line.size() <= CodeDigits || line[CodeDigits] != separator ||
        !std::all_of(line.begin(), line.begin() + CodeDigits, isDigit)) {
        return 0;
    }
    return (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
}

std::optional<std::uint16_t> portOf(std::string_view digits) {
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
    const bool isPort = error == std::errc() && end != digits.data() && port != 0;
    return isPort ? std::optional(port) : std::nullopt;
}

/// The port of an extended reply, "(|||6446|)": it follows three equal separators of any kind.
std::optional<std::uint16_t> extendedPort(std::string_view text) {
    const std::size_t at = text.find('(');
    if (at == std::string_view::npos || text.size() < at + 5 || text[at + 1] != text[at + 2] ||
        text[at + 1] != text[at + 3]) {
        return std::nullopt;
    }
    return portOf(text.substr(at + 4));
}

/// The port of a plain reply: the last two of six numbers with commas between them, anywhere in the
/// text.
std::optional<std::uint16_t> passivePort(std::string_view text) {
    constexpr int Commas = 5;
    constexpr unsigned TooLarge = 256;
    int commas = 0;
    unsigned high = 0;
    unsigned low = 0;
    for (const char byte : text) {
        if (isDigit(byte)) {
            low = std::min(low * 10 + static_cast<unsigned>(byte - '0'), TooLarge);
        } else if (commas == Commas && byte != ',') {
            break;
        } else {
            commas = byte == ',' ? commas + 1 : 0;
            high = std::exchange(low, 0);
        }
    }
    const bool isPort = commas == Commas && high < TooLarge && low < TooLarge && high + low > 0;
    return isPort ? std::optional(static_cast<std::uint16_t>(high * 256 + low)) : std::nullopt;
}

} // namespace

int finalCode(std::string_view line) {
    return codeBefore(' ', line);
}

int firstCode(std::string_view line) {
    return codeBefore('-', line);
}

std::optional<std::uint16_t> portIn(const FtpReply& reply) {
    if (reply.code == 229) {
        return extendedPort(reply.text);
    }
    return reply.code == 227 ? passivePort(reply.text) : std::nullopt;
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

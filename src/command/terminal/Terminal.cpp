#include "command/terminal/Terminal.h"

#include "platform/Console.h"

#include <cstdlib>

namespace quillmark {

namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

bool useColor(bool asked) {
    if (asked) {
        return true;
    }
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool capable = terminal != nullptr && std::string_view(terminal) != "dumb";
    return isTerminal(Stream::Output) && capable && (noColor == nullptr || *noColor == '\0');
}

std::string printable(std::string_view text) {
    static constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (!isControl(c)) {
            result += c;
            continue;
        }
        const auto code = static_cast<unsigned char>(c);
        result.append("\\x").append(1, Digits[code / 16]).append(1, Digits[code % 16]);
    }
    return result;
}

} // namespace quillmark

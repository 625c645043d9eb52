#include "command/Terminal.h"

#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr std::size_t UsualWidth = 80;

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

bool isTerminal(int stream) {
    return isatty(stream) != 0;
}

std::size_t terminalWidth() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col
                                                                           : UsualWidth;
}

bool useColor(bool asked) {
    if (asked) {
        return true;
    }
    const char* noColor = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    const bool capable = terminal != nullptr && std::string_view(terminal) != "dumb";
    return isTerminal(STDOUT_FILENO) && capable && (noColor == nullptr || *noColor == '\0');
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

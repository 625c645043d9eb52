#include "platform/Console.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr std::size_t UsualWidth = 80;

} // namespace

bool isTerminal(Stream stream) {
    return isatty(static_cast<int>(stream)) != 0;
}

std::size_t terminalWidth(Stream stream) {
    winsize size{};
    const bool tells = ioctl(static_cast<int>(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return tells ? size.ws_col : UsualWidth;
}

} // namespace quillmark

#include "platform/PasswordPrompt.h"

#include "platform/FileDescriptor.h"

#include <string_view>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr char GiveUp = '\x03';

/// A terminal that shows nothing of what is typed, and hands Ctrl-C over as a character: a program
/// ended by it here would leave the user's terminal silent.
class SilentTerminal {
public:
    explicit SilentTerminal(int terminal) : terminal_(terminal) {
        tcgetattr(terminal_, &before_);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
        silent.c_cc[VEOL] = static_cast<cc_t>(GiveUp);
        tcsetattr(terminal_, TCSAFLUSH, &silent);
    }
    ~SilentTerminal() { tcsetattr(terminal_, TCSAFLUSH, &before_); }
    SilentTerminal(const SilentTerminal&) = delete;
    SilentTerminal& operator=(const SilentTerminal&) = delete;

private:
    int terminal_;
    termios before_{};
};

void say(int terminal, std::string_view text) {
    if (write(terminal, text.data(), text.size()) < 0) {
        return; // The terminal is gone, and the reading behind this will tell.
    }
}

/// Empty at the end of the input before its line end, and for a line that was given up.
std::optional<std::string> readLine(int terminal) {
    std::string line;
    char c = 0;
    while (read(terminal, &c, 1) == 1) {
        if (c == '\n') {
            return line;
        }
        if (c == GiveUp) {
            return std::nullopt;
        }
        line += c;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> promptForPassword(const std::string& question) {
    const FileDescriptor terminal(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
    if (!terminal.isOpen()) {
        return std::nullopt;
    }
    const SilentTerminal silent(terminal.number());
    say(terminal.number(), question);
    auto password = readLine(terminal.number());
    say(terminal.number(), "\n");
    return password;
}

} // namespace quillmark

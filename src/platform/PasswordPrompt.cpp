#include "platform/PasswordPrompt.h"

#include "platform/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr char GiveUp = '\x03';

/// Stops the terminal from showing what is typed, and turns Ctrl-C into a character: a program that
/// Ctrl-C ended here would leave the user's terminal silent.
class SilentTerminal {
public:
    explicit SilentTerminal(int terminal) : terminal_(terminal) {
        tcgetattr(terminal_, &before_);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
        // The terminal hands over a line at Enter only, unless this character ends one too.
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
        return; // The terminal is gone; the reading that follows will tell.
    }
}

/// Holds back the signals that would end the program while its terminal is silent. One that came
/// meanwhile takes effect at the end of the scope.
class HeldSignals {
public:
    HeldSignals() {
        sigemptyset(&held_);
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
            sigaddset(&held_, number);
        }
        sigprocmask(SIG_BLOCK, &held_, &before_);
    }
    ~HeldSignals() { sigprocmask(SIG_SETMASK, &before_, nullptr); }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    const sigset_t& set() const { return held_; }

private:
    sigset_t held_{};
    sigset_t before_{};
};

/// Waits for typed text; false when a signal comes instead.
bool waitForText(int terminal, int signals) {
    std::array<pollfd, 2> waited = {{{terminal, POLLIN, 0}, {signals, POLLIN, 0}}};
    while (poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) {
    }
    return waited[1].revents == 0;
}

/// The typed line; nullopt if the input ends within it, the user gives up or a signal comes.
std::optional<std::string> readLine(int terminal, int signals) {
    std::string line;
    char c = 0;
    while (waitForText(terminal, signals) && read(terminal, &c, 1) == 1) {
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

FileDescriptor openTerminal() {
    return FileDescriptor(open("/dev/tty", O_RDWR | O_CLOEXEC | O_NOCTTY));
}

} // namespace

bool canPrompt() {
    return openTerminal().isOpen();
}

std::optional<std::string> promptForPassword(const std::string& question) {
    const FileDescriptor terminal = openTerminal();
    if (!terminal.isOpen()) {
        return std::nullopt;
    }
    // Held first, so that no signal ends the program while its terminal is silent.
    const HeldSignals held;
    const FileDescriptor signals(signalfd(-1, &held.set(), SFD_CLOEXEC));
    const SilentTerminal silent(terminal.number());
    say(terminal.number(), question);
    auto password = readLine(terminal.number(), signals.number());
    say(terminal.number(), "\n");
    return password;
}

} // namespace quillmark

#include "command/StopSignal.h"

#include <array>
#include <csignal>

namespace quillmark {

namespace {

constexpr std::array Signals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t interrupted = 0;

/// Does only what a signal handler may do: sets a flag, or ends the program.
extern "C" void interrupt(int number) {
    if (interrupted != 0) {
        std::signal(number, SIG_DFL);
        std::raise(number);
    }
    interrupted = 1;
}

} // namespace

StopSignal::StopSignal() {
    interrupted = 0;
    for (const int number : Signals) {
        // nohup and shells switch signals off for their jobs. Those stay off.
        if (std::signal(number, interrupt) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

StopSignal::~StopSignal() {
    for (const int number : Signals) {
        if (std::signal(number, SIG_DFL) == SIG_IGN) {
            std::signal(number, SIG_IGN);
        }
    }
}

void StopSignal::DoEvents() {
    if (interrupted != 0 && !pressed_) {
        pressed_ = true;
        stop_();
    }
}

} // namespace quillmark

#include "command/StopSignal.h"

#include <csignal>

namespace quillmark {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void interrupt(int number) {
    interrupted = 1;
    std::signal(number, SIG_DFL);
}

} // namespace

StopSignal::StopSignal() {
    interrupted = 0;
    std::signal(SIGINT, interrupt);
}

StopSignal::~StopSignal() {
    std::signal(SIGINT, SIG_DFL);
}

void StopSignal::DoEvents() {
    if (interrupted != 0 && !pressed_) {
        pressed_ = true;
        stop_();
    }
}

} // namespace quillmark

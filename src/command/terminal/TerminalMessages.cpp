#include "command/terminal/TerminalMessages.h"

#include "base/Printable.h"
#include "platform/Console.h"

#include <algorithm>
#include <cstdio>

namespace quillmark {

namespace {

constexpr std::chrono::milliseconds BetweenDrawings{50};
constexpr std::size_t MostKeptBack = std::size_t{16} * 1024;
constexpr std::size_t BarWidth = 24;
constexpr std::string_view EraseLine = "\r\x1B[K";

void write(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

std::string bar(int current, int total) {
    const auto filled =
        BarWidth * static_cast<std::size_t>(current) / static_cast<std::size_t>(total);
    return "[" + std::string(filled, '#') + std::string(BarWidth - filled, '.') + "] ";
}

} // namespace

TerminalMessages::~TerminalMessages() {
    if (drawn_) {
        write(EraseLine);
    }
    flush();
}

void TerminalMessages::posted(bool /*debug*/, std::string_view text) {
    if (detail_ == MessageDetail::Newest && timeToDraw()) {
        draw(text);
    }
    if (detail_ == MessageDetail::Lines || detail_ == MessageDetail::Debug) {
        kept_ += printable(text);
        kept_ += '\n';
        if (kept_.size() >= MostKeptBack || timeToDraw()) {
            flush();
        }
    }
}

void TerminalMessages::InitializeThinking(std::string_view title) {
    title_ = title;
}

void TerminalMessages::UpdateThinking(int current, int total) {
    if (detail_ == MessageDetail::Newest && timeToDraw()) {
        draw(bar(current, total) + title_ + "...PleaseWait");
    }
}

void TerminalMessages::RemoveThinking() {
    title_.clear();
}

void TerminalMessages::flush() {
    write(kept_);
    kept_.clear();
}

bool TerminalMessages::timeToDraw() {
    const auto now = std::chrono::steady_clock::now();
    if (now - lastDrawn_ < BetweenDrawings) {
        return false;
    }
    lastDrawn_ = now;
    return true;
}

void TerminalMessages::draw(std::string_view line) {
    write(EraseLine);
    // One column stays free: in the last one the cursor would go to the next line.
    write(printable(line, terminalWidth(Stream::Error) - 1));
    drawn_ = true;
}

} // namespace quillmark

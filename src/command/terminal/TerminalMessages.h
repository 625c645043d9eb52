#pragma once

#include "run/RunListener.h"
#include "ui/MessageSink.h"

#include <chrono>
#include <string>
#include <string_view>

namespace quillmark {

/// How much of the messages the terminal shows.
enum class MessageDetail {
    None,   ///< Nothing.
    Newest, ///< One line that shows the newest message and, in long passes, a bar.
    Lines,  ///< Every message on a line of its own.
    Debug   ///< The same, with debug messages.
};

/// Messages and progress on standard error.
class TerminalMessages : public MessageSink, public RunListener {
public:
    explicit TerminalMessages(MessageDetail detail) : detail_(detail) {}
    /// Erases the line of the newest message, and writes what is still kept back.
    ~TerminalMessages() override;
    TerminalMessages(const TerminalMessages&) = delete;
    TerminalMessages& operator=(const TerminalMessages&) = delete;

    void posted(bool debug, std::string_view text) override;
    bool wantsDebug() const override { return detail_ == MessageDetail::Debug; }

    void InitializeThinking(std::string_view title) override;
    void UpdateThinking(int current, int total) override;
    void RemoveThinking() override;

    /// Writes out what is kept back.
    void flush();

private:
    bool timeToDraw();
    void draw(std::string_view line);

    MessageDetail detail_;
    std::string kept_; ///< Lines to be written together: one write for each would slow the run.
    std::string title_;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point lastDrawn_;
};

} // namespace quillmark

#pragma once

#include "run/FtpTrace.h"
#include "ui/MessageSink.h"
#include "ui/TraceLog.h"

#include <functional>
#include <utility>

namespace quillmark {

/// Tells the window that there are new messages, which it reads from the message list.
class MessageFeed : public MessageSink {
public:
    void onPosted(std::function<void()> posted) { posted_ = std::move(posted); }

    void posted(bool /*debug*/, std::string_view /*text*/) override { posted_(); }
    /// The window shows no debug messages.
    bool wantsDebug() const override { return false; }

private:
    std::function<void()> posted_ = [] {};
};

/// Keeps the conversation with the host in the trace and tells the window of it.
class HostTrace : public FtpTrace {
public:
    explicit HostTrace(TraceLog& log) : log_(log) {}

    void onTraced(std::function<void()> traced) { traced_ = std::move(traced); }
    void Trace(std::string_view text) override {
        log_.Trace(text);
        traced_();
    }

private:
    TraceLog& log_;
    std::function<void()> traced_ = [] {};
};

} // namespace quillmark

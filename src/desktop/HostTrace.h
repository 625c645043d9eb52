#pragma once

#include "platform/ftp/connection/FtpTrace.h"
#include "ui/TraceLog.h"

#include <functional>
#include <utility>

namespace quillmark {

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

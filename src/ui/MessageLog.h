#pragma once

#include "run/Messages.h"
#include "run/RunState.h"
#include "settings/Configuration.h"
#include "store/CappedList.h"
#include "ui/MessageSink.h"
#include "ui/TraceLog.h"

#include <filesystem>

namespace quillmark {

/// Sends each message to where the user may look for it: the message list, the trace of the
/// conversation with the host, the sink and the log file. The options that decide are read at every
/// message, so that a change in the options dialog holds at once.
class MessageLog : public Messages {
public:
    /// The log keeps no more messages than this in the message list.
    static constexpr int Maximum = 51;

    /// Everything but the path is referred to and outlives the log. `logFile` is created by the
    /// first message that goes there.
    MessageLog(const Configuration& configuration, const RunState& run, CappedList& message,
               TraceLog& trace, std::filesystem::path logFile, MessageSink& sink);

    /// Throws a Failure when the log file cannot be written; the other places have the message
    /// then.
    void MessageHandler(bool debug, std::string_view text) override;
    bool wantsDebug() const override;

private:
    void keep(std::string_view text);
    void trace(std::string_view text);
    void show(bool debug, std::string_view text);
    void write(std::string_view text);

    const Configuration& configuration_;
    const RunState& run_;
    CappedList& message_;
    TraceLog& trace_;
    std::filesystem::path logFile_;
    MessageSink& sink_;
};

} // namespace quillmark

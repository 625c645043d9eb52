#pragma once

#include "run/Messages.h"
#include "run/RunState.h"
#include "settings/Configuration.h"
#include "store/CappedList.h"
#include "ui/MessageSink.h"
#include "ui/TraceLog.h"

#include <filesystem>

namespace quillmark {

/// Sends each message to all places where the user may look for it: the message list, the trace of
/// the conversation with the host, the sink and the log file. It reads the options anew for every
/// message, so that a change in the options dialog takes effect at once.
class MessageLog : public Messages {
public:
    /// The message list holds at most this many messages.
    static constexpr int Maximum = 51;

    /// Keeps references to everything but the path. The first message that goes to the log file
    /// creates it.
    MessageLog(const Configuration& configuration, const RunState& run, CappedList& message,
               TraceLog& trace, std::filesystem::path logFile, MessageSink& sink);

    /// Throws a Failure if the log file cannot be written. The other places have the message by
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

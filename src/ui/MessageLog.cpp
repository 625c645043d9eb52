#include "ui/MessageLog.h"

#include "base/Version.h"
#include "ui/LineWriter.h"

#include <string>
#include <utility>

namespace quillmark {

MessageLog::MessageLog(const Configuration& configuration, const RunState& run, CappedList& message,
                       TraceLog& trace, std::filesystem::path logFile, MessageSink& sink)
    : configuration_(configuration), run_(run), message_(message), trace_(trace),
      logFile_(std::move(logFile)), sink_(sink) {}

void MessageLog::MessageHandler(bool debug, std::string_view text) {
    if (debug && configuration_.DEBUG != 1) {
        return;
    }
    if (!debug) {
        keep(text);
        trace(text);
    }
    // The log comes last: it alone can fail, and the message is everywhere else by then.
    show(debug, text);
    write(text);
}

bool MessageLog::wantsDebug() const {
    return configuration_.DEBUG == 1 && (configuration_.LOG_FILE == 1 || sink_.wantsDebug());
}

void MessageLog::keep(std::string_view text) {
    if (message_.Count() >= Maximum) {
        message_.RemoveFirst();
    }
    message_.Append(text);
}

void MessageLog::trace(std::string_view text) {
    if (!run_.localMode && configuration_.TRACE_WINDOW == 1) {
        trace_.Trace(std::string(ApplicationTitle).append(" : ").append(text));
    }
}

void MessageLog::show(bool debug, std::string_view text) {
    if (!debug || sink_.wantsDebug()) {
        sink_.posted(debug, text);
    }
}

void MessageLog::write(std::string_view text) {
    if (configuration_.LOG_FILE != 1) {
        return;
    }
    // Closed after every message, the log is complete even if the program ends abruptly.
    LineWriter log(logFile_, std::ios::app);
    log.line(text);
    log.close();
}

} // namespace quillmark

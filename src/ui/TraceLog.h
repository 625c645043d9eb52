#pragma once

#include "store/CappedList.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

namespace quillmark {

/// The newest lines of the conversation with the host and of the messages posted beside it.
class TraceLog {
public:
    /// Adds a command sent, a reply received or a message. A text may have several lines, each
    /// ended by CR LF; what follows the last CR LF is dropped. A text without any is one line. A
    /// PASS command is kept as "PASS", so that no password is ever shown or saved. If the list
    /// holds more than 50 lines, each call first removes the oldest one.
    void Trace(std::string_view text);
    /// Adds one line as it stands and removes none.
    void Append(std::string_view line) { lines_.Append(line); }
    void Clear() { lines_.Clear(); }
    const CappedList& DebugList() const { return lines_; }

private:
    CappedList lines_;
};

/// The Save command of the trace window, for the life of the program. It has never saved a trace,
/// and it stays as users know it: - The first file that can be opened gets the title line,
/// "Quillmark Version 3.5.0", and nothing
///   else. The next line would name the host of the trace window, which is never given one; there
///   the save fails.
/// - That file stays open until the program ends. While it is open every later save fails, and
/// leaves the file chosen then as it is. - Each save leaves "Unable to save trace window" as the
/// newest line of the trace.
class TraceSave {
public:
    /// The trace must outlive this object.
    explicit TraceSave(TraceLog& trace) : trace_(trace) {}

    /// Takes the path that the user chose, in the machine's own form; nullopt if the dialog was
    /// cancelled, which is reported in the same way.
    void save(const std::optional<std::filesystem::path>& chosen);

private:
    TraceLog& trace_;
    std::ofstream file_;
};

} // namespace quillmark

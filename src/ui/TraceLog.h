#pragma once

#include "store/CappedList.h"

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

} // namespace quillmark

#pragma once

#include "store/CappedList.h"

#include <string_view>

namespace quillmark {

/// The newest lines of the conversation with the host and of the messages posted beside it.
class TraceLog {
public:
    /// Adds a command sent, a reply received or a message, which may be several lines, each ended
    /// by CR LF; a tail behind the last CR LF is dropped, a text without any is one line. A PASS
    /// command is kept as "PASS", so that no password is ever shown or saved. A list of more than
    /// 50 lines loses its oldest line first, one for each call.
    void Trace(std::string_view text);
    /// Adds one line as it stands, however many there are.
    void Append(std::string_view line) { lines_.Append(line); }
    void Clear() { lines_.Clear(); }
    const CappedList& DebugList() const { return lines_; }

private:
    CappedList lines_;
};

} // namespace quillmark

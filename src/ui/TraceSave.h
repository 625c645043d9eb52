#pragma once

#include "ui/TraceLog.h"

#include <filesystem>
#include <fstream>
#include <optional>

namespace quillmark {

/// The Save command of the trace window, for the life of the program. No trace was ever saved by
/// it, and users know it so:
/// - The first file that can be opened gets the title line, "Quillmark Version 3.5.0", and nothing
///   else. The next line would name the host of the trace window, which is never given one; there
///   the save fails.
/// - That file stays open until the program ends. Every later save fails because of it, and leaves
///   the file chosen then as it is.
/// - Each save leaves "Unable to save trace window" as the newest line of the trace.
class TraceSave {
public:
    /// The trace is referred to and outlives this.
    explicit TraceSave(TraceLog& trace) : trace_(trace) {}

    /// Takes the path that the user chose, in the machine's own form; none when the dialog was
    /// cancelled, which is reported in the same way.
    void save(const std::optional<std::filesystem::path>& chosen);

private:
    TraceLog& trace_;
    std::ofstream file_;
};

} // namespace quillmark

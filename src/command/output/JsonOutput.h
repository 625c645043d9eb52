#pragma once

#include "check/CheckRun.h"
#include "ui/Workspace.h"

#include <ostream>

namespace quillmark {

/// Writes the outcome and every list as one JSON object (RFC 8259). Bytes that are not UTF-8 become
/// U+FFFD.
void writeJson(std::ostream& out, RunOutcome outcome, const Workspace& workspace);

} // namespace quillmark

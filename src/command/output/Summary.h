#pragma once

#include "check/CheckRun.h"
#include "ui/Workspace.h"

#include <ostream>

namespace quillmark {

/// Writes what a person wants to know of a run: the counts, each invalid reference under the page
/// that makes it, and how to see the rest. Names below the start directory are shown from there on.
void writeSummary(std::ostream& out, RunOutcome outcome, const Workspace& workspace, bool color);

} // namespace quillmark

#pragma once

#include "check/CheckRun.h"
#include "command/options/Options.h"
#include "ui/Workspace.h"

namespace quillmark {

/// Throws CannotStart when a result cannot be written where the command line wants it. Asked before
/// the run: a check of a large site is not to be lost to a mistyped folder.
void requireWritableResults(const Options& options);

/// Writes what the command line asks for, or the summary. Throws a Failure when that is not
/// possible.
void writeResults(const Options& options, RunOutcome outcome, const Workspace& workspace);

} // namespace quillmark

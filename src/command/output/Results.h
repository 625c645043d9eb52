#pragma once

#include "check/CheckRun.h"
#include "command/options/Options.h"
#include "ui/Workspace.h"

#include <functional>
#include <string>

namespace quillmark {

/// Throws CannotStart when a result cannot be written where the command line wants it. Asked before
/// the run: a check of a large site is not to be lost to a mistyped folder.
void requireWritableResults(const Options& options);

/// Writes what the command line asks for, or the summary. Throws a Failure when that is not
/// possible.
void writeResults(const Options& options, RunOutcome outcome, const Workspace& workspace);

/// Performs the writing of a file, so that a Failure of it says which file could not be written.
void writing(const std::string& file, const std::function<void()>& write);

} // namespace quillmark

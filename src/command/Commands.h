#pragma once

#include "command/options/Options.h"

namespace quillmark {

/// Runs one check as the command line asks, writes its results and returns the exit status
/// (ExitStatus). Reports every error on standard error.
int runCheck(const Options& options);

/// Saves or shows a profile as the command line asks, and returns the exit status in the same way.
int runProfileCommand(const Options& options);

} // namespace quillmark

#pragma once

#include "command/options/Options.h"

namespace quillmark {

/// Runs one check as the command line asks, writes its results and returns the exit status.
int runCheck(const Options& options);

/// Saves or shows a profile, as the command line asks, and returns the exit status.
int runProfileCommand(const Options& options);

} // namespace quillmark

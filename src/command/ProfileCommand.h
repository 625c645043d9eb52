#pragma once

#include "command/start/Options.h"

namespace quillmark {

/// Saves or shows a profile, as the command line asks, and returns the exit status.
int runProfileCommand(const Options& options);

} // namespace quillmark

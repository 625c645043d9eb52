#pragma once

#include "command/options/Options.h"

namespace quillmark {

/// Saves or shows a profile, as the command line asks, and returns the exit status.
int runProfileCommand(const Options& options);

} // namespace quillmark

#pragma once

#include "command/options/Options.h"

namespace CLI {
class App;
}

namespace quillmark {

/// Adds the options for web addresses: whether and how servers are asked for them.
void addUrlOptions(CLI::App& app, Options& options);

} // namespace quillmark

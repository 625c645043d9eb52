#pragma once

#include "command/options/Options.h"

namespace CLI {
class App;
}

namespace quillmark {

/// Adds the options of web addresses: whether and how they are asked.
void addUrlOptions(CLI::App& app, Options& options);

} // namespace quillmark

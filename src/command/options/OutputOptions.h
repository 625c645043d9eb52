#pragma once

#include "command/options/Options.h"

namespace CLI {
class App;
}

namespace quillmark {

/// Adds --output and what goes with it.
void addOutputOptions(CLI::App& app, Options& options);

/// Throws a CLI::ValidationError if two results want standard output.
void requireOneStandardOutput(const Options& options);

} // namespace quillmark

#pragma once

#include "command/options/Options.h"

#include <optional>
#include <string>

namespace CLI { // NOLINT(readability-identifier-naming): a library's own.
class App;
}

namespace quillmark {

/// A file with options, each by its long name: "strict = true".
struct ConfigFile {
    std::string path;
    /// It lay beside the start page: nobody named it, and it may have come with the site.
    bool found = false;
};

/// The file that --config names, or else quillmark.toml beside the start page, if it is there.
std::optional<ConfigFile> configFileFor(const Options& options);

/// Has the app take the options that the command line does not give from the file. Relative paths
/// in it go from its folder. Parsing then throws a CLI::ValidationError, with file and line, for
/// what is no option, for what a found file must not ask for, and for what cannot be read.
void useConfigFile(CLI::App& app, const ConfigFile& file);

} // namespace quillmark

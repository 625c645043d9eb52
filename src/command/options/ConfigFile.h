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
    /// It was found beside the start page: nobody named it, and it may have come with the site.
    bool found = false;
};

/// The file that --config names, or else quillmark.toml beside the start page, if it is there.
std::optional<ConfigFile> configFileFor(const Options& options);

/// Makes the app take options that the command line does not give from the file. Relative paths in
/// it start at its folder. Parsing then throws a CLI::ValidationError, with file and line, for an
/// unknown option, for one that a found file must not give, and for text that cannot be read.
void useConfigFile(CLI::App& app, const ConfigFile& file);

} // namespace quillmark

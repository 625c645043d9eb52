#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillmark {

/// The command line of quillmark-check.
struct Options {
    std::string start;   ///< A local start file, as the user's shell names it.
    std::string profile; ///< The name of a profile instead.
    std::optional<std::string> folder;
    std::vector<std::string> set; ///< KEY=VALUE each.
    std::string report;
    std::string json; ///< A file, or "-" for standard output.
    std::string list; ///< The name of a result list.
    bool quiet = false;
    bool verbose = false;
    bool color = false;
    bool noProgress = false;

    /// Whether anything but the summary was asked for.
    bool hasOutput() const { return !report.empty() || !json.empty() || !list.empty(); }
};

/// Reads the command line. When there is nothing to run (--help, --version, a usage error) it has
/// said so, and the result holds the exit status instead.
struct ParsedOptions {
    Options options;
    std::optional<int> exitStatus;
};
ParsedOptions parseOptions(int argc, const char* const* argv);

} // namespace quillmark

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quillmark {

/// What quillmark-check is asked to do.
enum class Action { Check, SaveProfile, ShowProfile };

/// The command line of quillmark-check.
struct Options {
    Action action = Action::Check;
    std::string start;   ///< A local start file, as the user's shell names it.
    std::string profile; ///< The name of a profile: to run instead, to save or to show.
    std::string host;    ///< The web host to check instead.
    std::string startPath;
    std::optional<std::string> port;
    std::optional<std::string> userName;
    std::optional<std::string> account;
    std::string passwordFile;
    std::string trace; ///< The file for the conversation with the host.
    std::size_t fetches = 32;
    std::size_t fetchesToOneHost = 8;
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

#pragma once

#include "web/check/WebOptions.h"

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// What quillmark-check tells the shell.
enum ExitStatus : int {
    NothingInvalid = 0,
    InvalidFound = 1,
    NotStarted = 2, ///< A usage error, or nothing to check.
    NotFinished = 3 ///< The check was aborted or failed, or its results could not be written.
};

/// Why a check cannot begin, in words that tell the user what to do about it. The program then ends
/// with NotStarted.
class CannotStart : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What quillmark-check is asked to do.
enum class Action { Check, SaveProfile, ShowProfile };

/// The heading in the help text over the options of a web host.
inline constexpr std::string_view HostGroup = "On a web host";
inline const std::string ResultsGroup = "Results"; ///< What is written, and where.

/// Where one format goes.
struct Output {
    std::string format; ///< One of formats().
    std::string file;   ///< "" is standard output.
};

/// The command line of quillmark-check.
struct Options {
    Action action = Action::Check;
    std::string start;   ///< A local start file or its folder, in the machine's own form.
    std::string profile; ///< The name of a profile: to run instead, to save or to show.
    std::string host;    ///< The web host to check instead.
    std::string startPath;
    std::optional<std::string> port;
    std::optional<std::string> userName;
    std::optional<std::string> account;
    std::string config; ///< The file with options that is named.
    std::string passwordFile;
    std::optional<std::string> encryption; ///< "none", "tls", "implicit" or "sftp".
    std::optional<std::string> connections;
    std::optional<std::string> trusted; ///< A fingerprint.
    std::optional<std::string> keyFile;
    std::string trace; ///< The file for the conversation with the host.
    std::size_t fetches = 32;
    std::optional<std::size_t> fetchesToOneHost;
    std::optional<std::string> folder;
    std::vector<std::string> set; ///< KEY=VALUE each.
    std::string report;
    std::string json; ///< A file, or "-" for standard output.
    std::string list; ///< The name of a result list.
    std::vector<Output> outputs;
    std::string pathPrefix; ///< The folder of the site in the user's repository, as given.
    std::string baseline;   ///< The file of known findings.
    std::string writeBaseline;
    std::optional<std::string> rules; ///< "classic" or "web".
    std::optional<std::string> siteUrl;
    std::optional<std::string> root; ///< The top of the site, in the machine's or host's form.
    web::WebOptions web;
    bool checkUrls = false;
    bool ignoreCase = false;
    bool duplicates = false;
    std::optional<std::string> maxLevels;
    bool strict = false;
    bool quiet = false;
    bool verbose = false;
    bool color = false;
    bool noProgress = false;

    /// Whether anything was asked for that is made from the result lists.
    bool needsLists() const { return !report.empty() || !json.empty() || !list.empty(); }
};

/// The command line as it was read. If there is nothing more to do (--help, --version, a usage
/// error), the user has been told, and `exitStatus` is set.
struct ParsedOptions {
    Options options;
    std::optional<int> exitStatus;
};

/// Reads the command line, then the file of options if there is one.
ParsedOptions parseOptions(int argc, const char* const* argv);

} // namespace quillmark

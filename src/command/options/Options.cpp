#include "command/options/Options.h"

#include "base/Printable.h"
#include "base/Version.h"
#include "command/options/ConfigFile.h"
#include "command/options/NamedLists.h"
#include "command/options/OutputOptions.h"
#include "command/options/UrlOptions.h"
#include "settings/Profile.h"

#include <iostream>

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

constexpr const char* Description =
    "Checks a web site: reads its pages from one start file on and reports which references are\n"
    "invalid, which were ignored, which files nothing references and which are duplicated.";

constexpr const char* Footer =
    "Examples:\n"
    "  quillmark-check site/index.html\n"
    "  quillmark-check --rules web --output sarif:site.sarif site\n"
    "  quillmark-check --host ftp.site.org --user me --start /www/index.html\n"
    "  quillmark-check profile save \"My Site\" --host ftp.site.org --user me --start "
    "/www/index.html\n"
    "  quillmark-check --profile \"My Site\" --json - --report report.txt\n"
    "\n"
    "The password of a host comes from --password-file, from QUILLMARK_PASSWORD, from the profile\n"
    "or from you, when you are asked.\n"
    "\n"
    "Exit status: 0 nothing invalid, 1 invalid references or other errors (with --strict notes, "
    "too)\n"
    "that no baseline has, 2 not started (wrong usage, no such profile, start file or folder),\n"
    "3 aborted or failed, or a result could not be written. Ctrl-C stops the check and shows what\n"
    "was found; a second Ctrl-C ends the program at once.";

void addSource(CLI::App& app, Options& options) {
    auto* start = app.add_option("START", options.start,
                                 "Check the site on this disk that starts with this page, or "
                                 "with the\nindex page of this folder")
                      ->type_name("");
    auto* profile = app.add_option("--profile", options.profile, "Check the site of this profile")
                        ->type_name("NAME")
                        ->excludes(start);
    app.add_option("--folder", options.folder,
                   "Keep settings, profiles, log and working copy in this folder, instead of\n"
                   "$QUILLMARK_FOLDER, the program's folder if it can be written, or\n"
                   "~/.local/share/quillmark")
        ->type_name("DIR");
    app.add_option(
           "--set", options.set,
           "Change one setting for this check only; KEY is its name in Quillmark.ini or in\n"
           "a profile: --set MAX_LEVELS=3")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--config", options.config,
                   "Take options that are not given here from this file, instead of\n"
                   "quillmark.toml beside the start page")
        ->type_name("FILE");
    app.add_option("--host", options.host, "Check the site on this web host, over FTP or SFTP")
        ->type_name("NAME")
        ->excludes(start)
        ->excludes(profile);
}

void addChecking(CLI::App& app, Options& options) {
    app.add_flag("--ignore-case", options.ignoreCase, "Accept names that differ in letter case");
    app.add_flag("--duplicates", options.duplicates, "Look for duplicate files");
    app.add_option("--max-levels", options.maxLevels,
                   "List folders to this depth only; 0 is all of them")
        ->type_name("N");
}

void addHost(CLI::App& app, Options& options) {
    const std::string group(HostGroup);
    app.add_option("--start", options.startPath,
                   "Start with this page, as the host names it, such as /www/index.html")
        ->type_name("PATH")
        ->group(group);
    app.add_option("--encryption", options.encryption,
                   "Encrypt the connection to the host: none (the default; others can read the\n"
                   "password on the way), tls, implicit or sftp")
        ->type_name("NAME")
        ->check(CLI::IsMember({"none", "tls", "implicit", "sftp"}))
        ->group(group);
    app.add_option("--port", options.port,
                   "Connect to this port instead of 21, 990 (implicit) or 22 (sftp)")
        ->type_name("N")
        ->group(group);
    app.add_option("--connections", options.connections,
                   "Open at most this many connections to the host (4 if not given)")
        ->type_name("N")
        ->check(CLI::Range(1, int{MostConnections}))
        ->group(group);
    app.add_option(
           "--trust", options.trusted,
           "Trust a host whose certificate or key has this SHA-256, as printed when it was\n"
           "refused")
        ->type_name("SHA256")
        ->group(group);
    app.add_option("--key", options.keyFile,
                   "Log in by this SSH key; the password is the one that opens it")
        ->type_name("FILE")
        ->group(group);
    app.add_option("--user", options.userName, "Log in as this user instead of anonymous")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--account", options.account, "Give this account to a host that asks for one")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--password-file", options.passwordFile,
                   "Take the password from the first line of this file")
        ->type_name("FILE")
        ->group(group);
    app.add_option("--trace", options.trace, "Write the conversation with the host to this file")
        ->type_name("FILE")
        ->group(group);
}

void addWebRules(CLI::App& app, Options& options) {
    app.add_option(
           "--rules", options.rules,
           "How pages are read: classic (the default) by Quillmark's literal rules, web as\n"
           "browsers read them")
        ->type_name("NAME")
        ->check(CLI::IsMember({"classic", "web"}));
    const std::string webGroup = "With --rules web";
    const auto add = [&](const char* name, auto& value, const char* help, const char* type) {
        app.add_option(name, value, help)
            ->type_name(type)
            ->allow_extra_args(false)
            ->group(webGroup);
    };
    const auto flag = [&](const char* name, bool& value, const char* help) {
        app.add_flag(name, value, help)->group(webGroup);
    };
    add("--root", options.root, "The top of the site (the start file's folder)", "DIR");
    add("--site-url", options.siteUrl,
        "The address under which visitors see the top: references to it are the site's own files",
        "URL");
    add("--index", options.web.indexNames,
        "A name that answers for its folder (index.html, index.htm); may be repeated", "NAME");
    add("--exclude", options.web.exclude,
        "Ignore references, and paths from the top, that contain the pattern (RE2); may be\n"
        "repeated",
        "REGEX");
    add("--keep", options.web.keep,
        "Never call a file unused if its path from the top contains the pattern; may be repeated",
        "REGEX");
    flag("--clean-urls", options.web.cleanUrls, "\"about\" finds about.html");
    flag("--all-pages", options.web.allPages, "Read every page, not only those that are reached");
}

void addProfileCommand(CLI::App& profile, Options& options, const std::string& name,
                       const std::string& description, Action action) {
    CLI::App* command = profile.add_subcommand(name, description);
    command->fallthrough();
    command->add_option("NAME", options.profile, "The name of the profile")
        ->type_name("")
        ->required();
    command->callback([&options, action] { options.action = action; });
}

void addProfileCommands(CLI::App& app, Options& options) {
    CLI::App* profile = app.add_subcommand("profile", "Save or show a profile");
    profile->fallthrough();
    profile->require_subcommand(1);
    addProfileCommand(*profile, options, "save",
                      "Save a new profile, or change the given values of one that is there",
                      Action::SaveProfile);
    addProfileCommand(*profile, options, "show", "Show the values of a profile, not its password",
                      Action::ShowProfile);
}

void addOutput(CLI::App& app, Options& options) {
    addOutputOptions(app, options);
    app.add_option("--report", options.report, "Write the text report to this file")
        ->type_name("FILE")
        ->group(ResultsGroup);
    auto* json = app.add_option("--json", options.json,
                                "Write every list as JSON to this file (\"-\" is standard output)");
    json->type_name("FILE")->group(ResultsGroup);
    app.add_option(
           "--list", options.list,
           "Print one list, one entry per line; a list of references prints the reference, a\n"
           "tab and the page that makes it:\n" +
               namesOfLists())
        ->type_name("NAME")
        ->group(ResultsGroup);
    auto* quiet =
        app.add_flag("-q,--quiet", options.quiet,
                     "Print warnings, but no messages and no progress bar; the default where\n"
                     "standard error is not a terminal");
    app.add_flag("-v,--verbose", options.verbose,
                 "Print every message on a line of its own, debug messages too")
        ->excludes(quiet);
    app.add_flag("--color", options.color, "Use colours even if the output is not a terminal");
    app.add_flag("--no-progress", options.noProgress,
                 "Print every message on a line of its own instead of a progress bar");
    app.set_version_flag("--version", "quillmark-check " + std::string(ApplicationVersion),
                         "Print the version and end");
    app.set_help_flag("-h,--help", "Print this help and end");
}

/// Checks how options go together, which no single option can. Throws a CLI::ParseError.
void checkTogether(const Options& options) {
    if (options.action != Action::Check && options.profile.empty()) {
        throw CLI::ValidationError("a profile needs a name");
    }
    if (options.action != Action::Check && !options.config.empty()) {
        throw CLI::ValidationError("--config is for checks, not for profiles");
    }
    if (options.start.empty() && options.profile.empty() && options.host.empty()) {
        throw CLI::RequiredError("a start file, --profile NAME or --host NAME");
    }
    const bool hostOnly = options.action == Action::Check && !options.host.empty();
    if (hostOnly && options.startPath.empty()) {
        throw CLI::ValidationError("--host needs the start file on it: --start /www/index.html");
    }
    requireOneStandardOutput(options);
    if (!options.list.empty() && findList(options.list) == nullptr) {
        throw CLI::ValidationError("there is no list \"" + options.list + "\"; --help names them");
    }
}

std::string usageError(const std::string& text) {
    return "quillmark-check: " + printable(text) + "\nTry \"quillmark-check --help\".\n";
}

/// Reads the command line, and from the file what it leaves open. With a file, the command line was
/// read alone before and found sound, so any error now lies in the file.
ParsedOptions parseWith(int argc, const char* const* argv, const std::optional<ConfigFile>& file) {
    ParsedOptions parsed;
    CLI::App app(Description, "quillmark-check");
    app.footer(Footer);
    app.failure_message([&file](const CLI::App*, const CLI::Error& error) {
        const std::string text = error.what();
        const bool named = !file || text.starts_with(file->path);
        return usageError((named ? "" : file->path + ": ") + text);
    });
    addSource(app, parsed.options);
    addChecking(app, parsed.options);
    addWebRules(app, parsed.options);
    addHost(app, parsed.options);
    addUrlOptions(app, parsed.options);
    addProfileCommands(app, parsed.options);
    addOutput(app, parsed.options);
    if (file) {
        useConfigFile(app, *file);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        parsed.exitStatus = app.exit(error) == 0 ? NothingInvalid : NotStarted;
    }
    return parsed;
}

} // namespace

ParsedOptions parseOptions(int argc, const char* const* argv) {
    // Read once without the file, which lies beside the start page that the command line names.
    ParsedOptions parsed = parseWith(argc, argv, std::nullopt);
    if (!parsed.exitStatus && parsed.options.action == Action::Check) {
        if (const auto file = configFileFor(parsed.options)) {
            parsed = parseWith(argc, argv, file);
        }
    }
    try {
        if (!parsed.exitStatus) {
            checkTogether(parsed.options);
        }
    } catch (const CLI::ParseError& error) {
        std::cerr << usageError(error.what());
        parsed.exitStatus = NotStarted;
    }
    return parsed;
}

} // namespace quillmark

#include "command/options/Options.h"

#include "base/Version.h"
#include "command/options/ExitStatus.h"
#include "command/options/NamedLists.h"

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

constexpr const char* Description =
    "Checks a web site: reads its pages from one start file on and reports which references are\n"
    "invalid, which were ignored, which files nothing references and which are duplicated.";

constexpr const char* Footer =
    "Examples:\n"
    "  quillmark-check site/index.html\n"
    "  quillmark-check --list InvalidReferences --set IGNORECASE=1 site/index.html\n"
    "  quillmark-check --host ftp.site.org --user me --start /www/index.html\n"
    "  quillmark-check profile save \"My Site\" --host ftp.site.org --user me --start "
    "/www/index.html\n"
    "  quillmark-check --profile \"My Site\" --json - --report report.txt\n"
    "\n"
    "The password of a host comes from QUILLMARK_PASSWORD, --password-file, the profile, or a "
    "prompt.\n"
    "Exit status: 0 nothing invalid, 1 invalid references, 2 not started (usage, no such profile,\n"
    "start file or folder), 3 aborted or failed. Ctrl-C stops the run and shows what was found; a\n"
    "second Ctrl-C ends at once.";

void addSource(CLI::App& app, Options& options) {
    auto* start = app.add_option("START", options.start,
                                 "The start file of a local site, such as site/index.html")
                      ->type_name("");
    auto* profile =
        app.add_option("--profile", options.profile, "Run the profile NAME of the program's folder")
            ->type_name("NAME")
            ->excludes(start);
    app.add_option("--folder", options.folder,
                   "The program's own folder: settings, profiles, log and working copy (default:\n"
                   "$QUILLMARK_FOLDER, the executable's folder if it can be written, or\n"
                   "~/.local/share/quillmark)")
        ->type_name("DIR");
    app.add_option("--set", options.set,
                   "One profile or configuration value for this run only, by its key in the\n"
                   "settings files: --set MAX_LEVELS=3")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--host", options.host, "Check the site on this web host, over FTP")
        ->type_name("NAME")
        ->excludes(start)
        ->excludes(profile);
}

void addHost(CLI::App& app, Options& options) {
    const std::string group = "On a web host";
    app.add_option("--start", options.startPath, "The start file on the host: /www/index.html")
        ->type_name("PATH")
        ->group(group);
    app.add_option("--port", options.port, "FTP port (21)")->type_name("N")->group(group);
    app.add_option("--user", options.userName, "FTP user (anonymous)")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--account", options.account, "FTP account, where a host asks for one")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--password-file", options.passwordFile,
                   "The file whose first line is the password")
        ->type_name("FILE")
        ->group(group);
    app.add_option("--trace", options.trace, "Write the conversation with the host")
        ->type_name("FILE")
        ->group(group);
    app.add_option("--fetches", options.fetches, "Web references fetched at once (32)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000))
        ->group(group);
    app.add_option("--fetches-per-host", options.fetchesToOneHost, "The same, from one host (8)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000))
        ->group(group);
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
    CLI::App* profile = app.add_subcommand("profile", "Write and read profiles");
    profile->fallthrough();
    profile->require_subcommand(1);
    addProfileCommand(*profile, options, "save",
                      "Save a profile, or values of one: profile save NAME --set KEY=VALUE",
                      Action::SaveProfile);
    addProfileCommand(*profile, options, "show", "Show the values of a profile",
                      Action::ShowProfile);
}

void addOutput(CLI::App& app, Options& options) {
    app.add_option("--report", options.report, "Write the text report")->type_name("FILE");
    auto* json = app.add_option("--json", options.json,
                                "Write every list as JSON (\"-\" for standard output)");
    json->type_name("FILE");
    app.add_option("--list", options.list,
                   "Print one result list, a line an entry (pairs: entry, tab, referring file):\n" +
                       namesOfLists())
        ->type_name("NAME");
    auto* quiet = app.add_flag("-q,--quiet", options.quiet, "No messages and no progress bar");
    app.add_flag("-v,--verbose", options.verbose, "Every message a line, debug messages too")
        ->excludes(quiet);
    app.add_flag("--color", options.color, "Use colours even when the output is no terminal");
    app.add_flag("--no-progress", options.noProgress, "No progress bar on a terminal");
    app.set_version_flag("--version", "quillmark-check " + std::string(ApplicationVersion));
}

/// What the options cannot say one by one.
void checkTogether(const Options& options) {
    if (options.start.empty() && options.profile.empty() && options.host.empty()) {
        throw CLI::RequiredError("a start file, --profile NAME or --host NAME");
    }
    const bool hostOnly = options.action == Action::Check && !options.host.empty();
    if (hostOnly && options.startPath.empty()) {
        throw CLI::ValidationError("--host needs the start file on it: --start /www/index.html");
    }
    if (options.json == "-" && !options.list.empty()) {
        throw CLI::ValidationError(
            "--json - and --list both want standard output: give --json a file");
    }
    if (!options.list.empty() && findList(options.list) == nullptr) {
        throw CLI::ValidationError("there is no list \"" + options.list + "\"; the lists are\n" +
                                   namesOfLists());
    }
}

} // namespace

ParsedOptions parseOptions(int argc, const char* const* argv) {
    ParsedOptions parsed;
    CLI::App app(Description, "quillmark-check");
    app.footer(Footer);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "quillmark-check: " + std::string(error.what()) +
               "\nTry \"quillmark-check --help\".\n";
    });
    addSource(app, parsed.options);
    addHost(app, parsed.options);
    addProfileCommands(app, parsed.options);
    addOutput(app, parsed.options);
    try {
        app.parse(argc, argv);
        checkTogether(parsed.options);
    } catch (const CLI::ParseError& error) {
        parsed.exitStatus = app.exit(error) == 0 ? NothingInvalid : NotStarted;
    }
    return parsed;
}

} // namespace quillmark

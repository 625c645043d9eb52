#include "command/options/UrlOptions.h"

#include <chrono>
#include <map>
#include <string>

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

const std::string Group = "Web addresses";

void addLimits(CLI::App& app, Options& options) {
    app.add_option("--fetches", options.fetches,
                   "Fetch at most this many at a time (32 if not given)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000))
        ->group(Group);
    app.add_option("--fetches-per-host", options.fetchesToOneHost,
                   "Fetch at most this many at a time from one server (4 if not given; 8 with the\n"
                   "classic rules)")
        ->type_name("N")
        ->check(CLI::Range(1, 1000))
        ->group(Group);
    app.add_option_function<int>(
           "--url-time",
           [&options](int seconds) { options.web.links.time = std::chrono::seconds(seconds); },
           "Stop asking after this time, such as 90s, 10m (if not given) or 2h; an address that\n"
           "was not asked by then is a note. 0 is no limit")
        ->type_name("TIME")
        ->transform(
            CLI::AsNumberWithUnit(std::map<std::string, int>{{"s", 1}, {"m", 60}, {"h", 3600}},
                                  CLI::AsNumberWithUnit::CASE_INSENSITIVE, "TIME"))
        ->check(CLI::NonNegativeNumber)
        ->group(Group);
}

} // namespace

void addUrlOptions(CLI::App& app, Options& options) {
    app.add_flag("--check-urls", options.checkUrls,
                 "Check whether the web addresses that pages refer to are there")
        ->group(Group);
    app.add_flag("--url-fragments", options.web.links.fragments,
                 "Look for the \"#part\" of a web address in the page that answers")
        ->group(Group);
    app.add_option("--header", options.web.links.headers,
                   "Send a header to the addresses that begin with PREFIX, and to no others:\n"
                   "'https://www.site.example/ NAME: VALUE'; may be repeated")
        ->type_name("'PREFIX NAME: VALUE'")
        ->allow_extra_args(false)
        ->group(Group);
    app.add_flag("--exclude-private", options.web.links.excludePrivate,
                 "Ask nothing on this computer or in private networks")
        ->group(Group);
    addLimits(app, options);
}

} // namespace quillmark

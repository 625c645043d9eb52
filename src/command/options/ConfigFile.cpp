#include "command/options/ConfigFile.h"

#include "web/verdict/NearNames.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr const char* FileName = "quillmark.toml";

/// Not what a check is done with.
constexpr std::array<std::string_view, 3> CommandLineOnly = {"config", "help", "version"};

/// What a file that came with a site must not decide: where anything is written, which host is
/// talked to, and which password it gets.
constexpr std::array<std::string_view, 12> NotInFound = {
    "account", "folder", "host",  "json",  "password-file", "port",
    "profile", "report", "start", "trace", "user",          "write-baseline"};
constexpr std::array<std::string_view, 5> SettingsNotInFound = {
    "ACCOUNT_NAME=", "HOST_NAME=", "HOST_PORT=", "START_PATH=", "USER_NAME="};

template <typename Names> bool isAmong(const Names& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// CLI11's reader of TOML, with what it lets pass held against the options there are.
class OptionsFile : public CLI::ConfigTOML {
public:
    OptionsFile(const CLI::App& app, const ConfigFile& file)
        : file_(file), folder_(fs::absolute(file.path).parent_path()) {
        for (const CLI::Option* option : app.get_options()) {
            for (const std::string& name : option->get_lnames()) {
                if (!isAmong(CommandLineOnly, name)) {
                    options_[name] = option;
                }
            }
        }
    }

    std::vector<CLI::ConfigItem> from_config(std::istream& input) const override {
        std::ostringstream text;
        text << input.rdbuf();
        std::istringstream whole(text.str());
        std::vector<CLI::ConfigItem> items = CLI::ConfigTOML::from_config(whole);
        std::vector<std::string> seen;
        for (CLI::ConfigItem& item : items) {
            const std::string place = placeOf(item, text.str());
            requireOption(item, place);
            requireReadable(item, place);
            if (isAmong(seen, item.name)) {
                throw CLI::ValidationError(place + "\"" + item.name +
                                           "\" is there twice; write its values as [\"a\", \"b\"]");
            }
            seen.push_back(item.name);
            if (file_.found) {
                requireHarmless(item, place);
            }
            resolvePaths(item);
        }
        return items;
    }

private:
    /// "site/quillmark.toml:3: "
    std::string placeOf(const CLI::ConfigItem& item, const std::string& text) const {
        const std::string wanted = isSection(item) ? "[" + item.parents.front() : item.fullname();
        std::istringstream lines(text);
        std::string line;
        for (int number = 1; std::getline(lines, line); ++number) {
            std::string key = CLI::detail::trim_copy(line.substr(0, line.find('=')));
            CLI::detail::remove_quotes(key);
            if (key == wanted || (isSection(item) && key.starts_with(wanted))) {
                return file_.path + ":" + std::to_string(number) + ": ";
            }
        }
        return file_.path + ": ";
    }

    static bool isSection(const CLI::ConfigItem& item) {
        return item.name == "++" || item.name == "--";
    }

    void requireOption(const CLI::ConfigItem& item, const std::string& place) const {
        if (isSection(item)) {
            throw CLI::ValidationError(place + "options stand by themselves, without [" +
                                       item.parents.front() + "]");
        }
        if (item.parents.empty() && options_.count(item.name) > 0) {
            return;
        }
        std::vector<std::string_view> names;
        for (const auto& option : options_) {
            names.emplace_back(option.first);
        }
        const auto nearest = web::NearNames().nearest(item.name, names);
        throw CLI::ValidationError(place + "there is no option \"" + item.fullname() + "\"" +
                                   (nearest
                                        ? "; did you mean \"" + std::string(names[*nearest]) + "\"?"
                                        : "; --help names them, write them without \"--\""));
    }

    /// The reader ends a value at "#" and loses what follows, in quotes, too.
    static void requireReadable(const CLI::ConfigItem& item, const std::string& place) {
        for (const std::string& value : item.inputs) {
            if (!value.empty() && (value.front() == '"' || value.front() == '\'')) {
                throw CLI::ValidationError(place + "the quotes of \"" + item.name +
                                           "\" do not end; a value cannot hold \"#\", which begins "
                                           "a comment: write \\x23 in a pattern");
            }
        }
    }

    static void requireHarmless(const CLI::ConfigItem& item, const std::string& place) {
        const bool harmful =
            isAmong(NotInFound, item.name) ||
            std::any_of(item.inputs.begin(), item.inputs.end(), [&](const std::string& value) {
                return (item.name == "output" && value.find(':') != std::string::npos) ||
                       (item.name == "set" &&
                        std::any_of(SettingsNotInFound.begin(), SettingsNotInFound.end(),
                                    [&](auto key) { return value.starts_with(key); }));
            });
        if (harmful) {
            throw CLI::ValidationError(
                place + "\"" + item.name +
                "\" cannot stand in a file that may have come with the site, since it writes a "
                "file "
                "or names a host; give it on the command line, or name the file with --config");
        }
    }

    void resolvePaths(CLI::ConfigItem& item) const {
        const std::string type = options_.at(item.name)->get_type_name();
        for (std::string& value : item.inputs) {
            if (item.name == "output") {
                const std::size_t colon = value.find(':');
                if (colon != std::string::npos) {
                    value = value.substr(0, colon + 1) + resolved(value.substr(colon + 1));
                }
            } else if (type == "FILE" || type == "DIR") {
                value = resolved(value);
            }
        }
    }

    std::string resolved(const std::string& path) const {
        return path.empty() || path == "-" ? path : (folder_ / path).lexically_normal().string();
    }

    ConfigFile file_;
    fs::path folder_;
    std::map<std::string, const CLI::Option*> options_;
};

} // namespace

std::optional<ConfigFile> configFileFor(const Options& options) {
    if (!options.config.empty()) {
        return ConfigFile{options.config, false};
    }
    if (options.start.empty()) {
        return std::nullopt;
    }
    std::error_code error;
    const fs::path start(options.start);
    const fs::path folder = fs::is_directory(start, error) ? start : start.parent_path();
    if (!fs::is_regular_file(folder / FileName, error)) {
        return std::nullopt;
    }
    return ConfigFile{(folder / FileName).string(), true};
}

void useConfigFile(CLI::App& app, const ConfigFile& file) {
    app.remove_option(app.get_option("--config"));
    app.set_config("--config", file.path);
    app.config_formatter(std::make_shared<OptionsFile>(app, file));
}

} // namespace quillmark

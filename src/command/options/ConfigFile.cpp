#include "command/options/ConfigFile.h"

#include "command/options/ConfigText.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <numeric>
#include <sstream>

#include <CLI/CLI.hpp>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr const char* FileName = "quillmark.toml";
constexpr std::size_t LongestMistake =
    64; ///< In bytes; of a longer word only the beginning is compared.

/// Options that make no sense in a file.
constexpr std::array<std::string_view, 3> CommandLineOnly = {"config", "help", "version"};

/// What a file that came with a site must not decide, besides all options of HostGroup: where
/// anything is written, which host is connected to, how it proves its identity, and which password
/// it gets.
constexpr std::array<std::string_view, 6> NotInFound = {"folder",  "host",   "json",
                                                        "profile", "report", "write-baseline"};
constexpr std::array<std::string_view, 8> SettingsNotInFound = {
    "ACCOUNT_NAME=", "ENCRYPTION=", "HOST_NAME=", "HOST_PORT=",
    "KEY_FILE=",     "START_PATH=", "TRUSTED=",   "USER_NAME="};

template <typename Names> bool isAmong(const Names& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// How many bytes must be inserted, removed or changed to turn one text into the other (Levenshtein
/// distance).
std::size_t editsBetween(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (c == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

/// CLI11's reader of TOML, with checks of our own: it lets unknown options, repeated ones and odd
/// values pass.
class OptionsFile : public CLI::ConfigTOML {
public:
    OptionsFile(const CLI::App& app, const ConfigFile& file)
        : file_(file), folder_(fs::absolute(file.path).parent_path()) {
        comment('\n'); // readableToml() has removed the comments; any "#" left is in quotes.
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
        std::vector<CLI::ConfigItem> options = read(text.str());
        std::vector<std::string> seen;
        for (CLI::ConfigItem& item : options) {
            const std::string place = placeOf(item, text.str());
            requireOption(item, place);
            requireFlag(item, place);
            if (isAmong(seen, item.name)) {
                throw CLI::ValidationError(place + "\"" + item.name +
                                           "\" is there twice; a list is written as ['a', 'b']");
            }
            seen.push_back(item.name);
            if (file_.found) {
                requireHarmless(item, place);
            }
            resolvePaths(item);
        }
        return options;
    }

private:
    std::vector<CLI::ConfigItem> read(const std::string& text) const {
        try {
            std::istringstream readable(readableToml(text));
            return CLI::ConfigTOML::from_config(readable);
        } catch (const ConfigTextError& error) {
            throw CLI::ValidationError(file_.path + ":" + std::to_string(error.line()) + ": " +
                                       error.what());
        }
    }

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

    /// Whether CLI11 means the begin or the end of a [section] by this item.
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
        const std::string nearest = nearestOption(item.fullname());
        throw CLI::ValidationError(place + "there is no option \"" + item.fullname() + "\"" +
                                   (nearest.empty()
                                        ? "; --help names them, write them without \"--\""
                                        : "; did you mean \"" + nearest + "\"?"));
    }

    /// The option with the fewest edits; "" if they would change half of its name or more.
    std::string nearestOption(const std::string& name) const {
        std::string nearest;
        std::size_t fewest = std::min<std::size_t>(name.size(), LongestMistake) / 2 + 1;
        for (const auto& option : options_) {
            const std::size_t edits =
                editsBetween(std::string_view(name).substr(0, LongestMistake), option.first);
            if (edits < fewest && 2 * edits < option.first.size()) {
                fewest = edits;
                nearest = option.first;
            }
        }
        return nearest;
    }

    void requireFlag(const CLI::ConfigItem& item, const std::string& place) const {
        const bool flag = options_.at(item.name)->get_expected_max() == 0;
        if (flag && item.inputs != std::vector<std::string>{"true"} &&
            item.inputs != std::vector<std::string>{"false"}) {
            throw CLI::ValidationError(place + "\"" + item.name + "\" is true or false");
        }
    }

    /// Throws if a found file decides what it must not.
    void requireHarmless(const CLI::ConfigItem& item, const std::string& place) const {
        const bool harmful =
            isAmong(NotInFound, item.name) || options_.at(item.name)->get_group() == HostGroup ||
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
                "file or names a host; give it on the command line, or name the file with "
                "--config");
        }
    }

    /// A path in the file starts at the file's folder, wherever the program was started.
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

#include "command/start/RunSettings.h"

#include "command/output/Complaint.h"
#include "command/output/Terminal.h"
#include "command/start/StartFile.h"
#include "settings/ConfigurationFile.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "settings/SettingValue.h"

#include <algorithm>
#include <string>
#include <vector>

namespace quillmark {

namespace {

void loadProfile(const std::string& name, Settings& settings, SettingsFiles& files) {
    const std::vector<std::string> names = ListProfiles(files);
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        std::string text = "there is no profile \"" + name + "\" in the program's folder";
        for (std::size_t i = 0; i < names.size(); ++i) {
            text += (i == 0 ? "; the profiles are: " : ", ") + names[i];
        }
        throw CannotStart(text);
    }
    if (!LoadProfile(settings, files, name)) {
        complain("the profile \"" + name + "\" is damaged; what could be read of it is used");
    }
}

void applySettings(const std::vector<std::string>& assignments, Settings& settings) {
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos) {
            throw CannotStart("--set takes KEY=VALUE, not \"" + assignment + "\"");
        }
        setByKey(settings, assignment.substr(0, equals), assignment.substr(equals + 1));
    }
}

/// The text of a message box, whose lines end in CR LF.
void complainInLines(std::string_view text) {
    const std::size_t end = text.find("\r\n");
    complain(printable(text.substr(0, end)));
    if (end != std::string_view::npos) {
        complain(printable(text.substr(end + 2)));
    }
}

/// A configuration that was cut short by accident finds nothing, and must not pass for a sound
/// site.
void warnOfEmptyVocabulary(const Configuration& configuration) {
    if (configuration.lstCheckCommand.Count() == 0 || configuration.lstCheckHTML.Count() == 0) {
        complain("CHECK_COMMAND or CHECK_HTML is empty, so that references are missed; delete "
                 "Quillmark.ini to go back to the built-in lists");
    }
}

} // namespace

void readSettings(const Options& options, Settings& settings, SettingsFiles& files) {
    SetDefaultSettings(settings);
    ReadConfigurations(settings, files, complainInLines);
    Profile& profile = settings.profile;
    if (options.profile.empty()) {
        profile.START_PATH = startPathOf(options.start);
    } else {
        loadProfile(options.profile, settings, files);
    }
    applySettings(options.set, settings);
    if (options.verbose) {
        settings.configuration.DEBUG = 1;
    }
    if (profile.START_PATH.empty()) {
        throw CannotStart("there is no start path; give one with --set START_PATH=...");
    }
    if (profile.START_PATH.find('\\') == std::string::npos) {
        throw CannotStart("\"" + profile.START_PATH +
                          "\" is a path on a web host, and this version checks local sites only; a "
                          "local start path holds a \"\\\"");
    }
    requireStartFile(profile.START_PATH);
    warnOfEmptyVocabulary(settings.configuration);
}

} // namespace quillmark

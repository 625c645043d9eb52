#include "command/start/RunSettings.h"

#include "base/Failure.h"
#include "command/start/Password.h"
#include "command/terminal/Terminal.h"
#include "platform/disk/StartFile.h"
#include "settings/ConfigurationFile.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "settings/SettingValue.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

namespace {

void applySettings(const std::vector<std::string>& assignments, Settings& settings) {
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos) {
            throw CannotStart("--set takes KEY=VALUE, not \"" + assignment + "\"");
        }
        setByKey(settings, assignment.substr(0, equals), assignment.substr(equals + 1));
    }
}

/// Prints the text of a message box, two lines parted by CR LF, line by line.
void complainInLines(std::string_view text) {
    const std::size_t end = text.find("\r\n");
    complain(text.substr(0, end));
    if (end != std::string_view::npos) {
        complain(text.substr(end + 2));
    }
}

/// With a configuration file that was cut short, a check finds nothing and the site looks sound.
void warnOfEmptyVocabulary(const Configuration& configuration) {
    if (configuration.lstCheckCommand.Count() == 0 || configuration.lstCheckHTML.Count() == 0) {
        complain("CHECK_COMMAND or CHECK_HTML is empty, so that references are missed; delete "
                 "Quillmark.ini to go back to the built-in lists");
    }
}

void requireHost(const Profile& profile) {
    if (profile.HOST_NAME.empty()) {
        throw CannotStart("\"" + profile.START_PATH +
                          "\" is a path on a web host, and no host is named; name one with --host "
                          "NAME, or a local start file with \"\\\" in its path");
    }
}

/// The port follows the encryption unless somebody moved it.
void applyEncryption(const Options& options, Settings& settings) {
    Profile& profile = settings.profile;
    if (options.encryption) {
        const bool usual = profile.HOST_PORT == usualPort(profile.ENCRYPTION);
        setByKey(settings, "ENCRYPTION", *options.encryption);
        profile.HOST_PORT = usual ? usualPort(profile.ENCRYPTION) : profile.HOST_PORT;
    }
    if (options.connections) {
        setByKey(settings, "CONNECTIONS", *options.connections);
    }
    if (options.trusted) {
        setByKey(settings, "TRUSTED", *options.trusted);
    }
    if (options.keyFile) {
        const std::string& file = *options.keyFile;
        profile.KEY_FILE = file.starts_with("~/") ? file : std::filesystem::absolute(file).string();
    }
}

/// An option that would do nothing is a mistake: its user believes that the connection is
/// protected.
void requireMatchingEncryption(const Options& options, const Profile& profile) {
    if (options.keyFile && profile.ENCRYPTION != Encryption::Sftp) {
        throw CannotStart("--key needs --encryption sftp");
    }
    if (options.trusted && profile.ENCRYPTION == Encryption::None) {
        throw CannotStart("--trust needs --encryption tls, implicit or sftp");
    }
}

void applyHost(const Options& options, Settings& settings) {
    if (!options.host.empty()) {
        setByKey(settings, "HOST_NAME", options.host);
    }
    if (!options.startPath.empty()) {
        setByKey(settings, "START_PATH", options.startPath);
    }
    // Before --port, since the encryption moves the port.
    applyEncryption(options, settings);
    if (options.port) {
        setByKey(settings, "HOST_PORT", *options.port);
    }
    if (options.userName) {
        setByKey(settings, "USER_NAME", *options.userName);
    }
    if (options.account) {
        setByKey(settings, "ACCOUNT_NAME", *options.account);
    }
}

/// Applies the options that name a setting in plain words.
void applyPlainNames(const Options& options, Settings& settings) {
    if (options.ignoreCase) {
        settings.configuration.IGNORECASE = 1;
    }
    if (options.duplicates) {
        settings.profile.CHECK_DUPES = 1;
    }
    if (options.maxLevels) {
        setByKey(settings, "MAX_LEVELS", *options.maxLevels);
    }
}

/// Applies those options of the web rules that a profile can hold too.
void applyWebRules(const Options& options, Settings& settings) {
    Profile& profile = settings.profile;
    if (options.rules) {
        setByKey(settings, "RULES", *options.rules);
    }
    if (options.checkUrls) {
        profile.CHECK_URL = 1;
    }
    if (options.siteUrl) {
        profile.SITE_URL = *options.siteUrl;
    }
    if (options.root) {
        const bool local = profile.START_PATH.find('\\') != std::string::npos;
        profile.SITE_ROOT = local ? siteRootOf(*options.root) : *options.root;
    }
}

/// Only the command line decides whether the web rules ignore case: Quillmark.ini does not keep
/// that setting, and a name in other letters breaks on most servers.
void applyIgnoreCase(const Options& options, Settings& settings) {
    const auto namesCase = [](const std::string& assignment) {
        return assignment.starts_with("IGNORECASE=");
    };
    if (settings.profile.RULES == Rules::Web &&
        std::none_of(options.set.begin(), options.set.end(), namesCase)) {
        settings.configuration.IGNORECASE = options.ignoreCase ? 1 : 0;
    }
}

void requireSoundWebOptions(const Options& options, const Profile& profile) {
    try {
        web::requireSoundOptions(options.web, profile);
    } catch (const Failure& failure) {
        throw CannotStart(failure.description());
    }
}

/// Throws CannotStart, with the names there are, if there is no profile of that name.
void requireProfile(const std::string& name, SettingsFiles& files) {
    const std::vector<std::string> names = ListProfiles(files);
    if (std::find(names.begin(), names.end(), name) != names.end()) {
        return;
    }
    std::string text = "there is no profile \"" + name + "\" in the program's folder";
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "; the profiles are: " : ", ") + names[i];
    }
    throw CannotStart(text);
}

} // namespace

void applyOptions(const Options& options, Settings& settings) {
    applyHost(options, settings);
    applyPlainNames(options, settings);
    applyWebRules(options, settings);
    applySettings(options.set, settings);
    requireMatchingEncryption(options, settings.profile);
}

void loadNamedProfile(const std::string& name, Settings& settings, SettingsFiles& files) {
    requireProfile(name, files);
    if (!LoadProfile(settings, files, name)) {
        complain("the profile \"" + name + "\" is damaged; what could be read of it is used");
    }
}

namespace {

/// Applies the profile and the command line. Throws if there is nothing to check with them.
void takeRunSettings(const Options& options, Settings& settings, SettingsFiles& files) {
    Profile& profile = settings.profile;
    if (!options.profile.empty()) {
        loadNamedProfile(options.profile, settings, files);
    } else if (!options.start.empty()) {
        profile.START_PATH = startPathOf(startPageOf(options.start, options.web.indexNames));
    }
    applyOptions(options, settings);
    applyIgnoreCase(options, settings);
    requireSoundWebOptions(options, profile);
    if (options.verbose) {
        settings.configuration.DEBUG = 1;
    }
    if (profile.START_PATH.empty()) {
        throw CannotStart("there is no start path; give one with --start PATH");
    }
    if (profile.START_PATH.find('\\') != std::string::npos) {
        requireStartFile(profile.START_PATH, profile.RULES);
    } else {
        requireHost(profile);
        requireKeyFile(profile);
        takePassword(options, profile);
    }
}

} // namespace

// The file is written last. Letter case is ignored until the file is there, and a check that is
// refused must not use up the only one that does so.
void readSettings(const Options& options, Settings& settings, SettingsFiles& files) {
    SetDefaultSettings(settings);
    const bool complete = LoadConfigurations(settings, files, complainInLines);
    Settings loaded = settings;
    takeRunSettings(options, settings, files);
    warnOfEmptyVocabulary(settings.configuration);
    if (!complete) {
        SaveConfigurations(loaded, files);
    }
}

} // namespace quillmark

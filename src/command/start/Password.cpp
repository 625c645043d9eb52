#include "command/start/Password.h"

#include "base/Printable.h"
#include "platform/PasswordPrompt.h"

#include <cstdlib>
#include <fstream>

namespace quillmark {

namespace {

std::string firstLineOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string line;
    // An empty file holds an empty password.
    if (!stream || (!std::getline(stream, line) && !stream.eof())) {
        throw CannotStart("the password file \"" + file + "\" cannot be read");
    }
    // Some editors end lines in CR LF.
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return line;
}

} // namespace

std::optional<std::string> givenPassword(const Options& options) {
    if (!options.passwordFile.empty()) {
        return firstLineOf(options.passwordFile);
    }
    if (const char* password = std::getenv("QUILLMARK_PASSWORD")) {
        return password;
    }
    return std::nullopt;
}

std::optional<std::string> askForPassword(const Profile& profile) {
    std::string question = "Password of " + profile.USER_NAME + " at " + profile.HOST_NAME;
    if (profile.logsInByKeyFile()) {
        question = "Passphrase of " + profile.KEY_FILE + " (empty if it has none)";
    } else if (profile.ENCRYPTION == Encryption::Sftp) {
        question += " (empty if your SSH agent has the key)";
    }
    return promptForPassword(printable(question + ": "));
}

void takePassword(const Options& options, Profile& profile) {
    if (auto password = givenPassword(options)) {
        profile.USER_PASSWORD = *password;
        return;
    }
    const bool needed = options.profile.empty() && !profile.USER_NAME.empty();
    if (!needed) {
        return;
    }
    const auto answer = askForPassword(profile);
    const bool canDoWithout = profile.ENCRYPTION == Encryption::Sftp && !canPrompt();
    if (!answer && !canDoWithout) {
        throw CannotStart("there is no password for " + profile.USER_NAME +
                          "; set QUILLMARK_PASSWORD or name a --password-file");
    }
    profile.USER_PASSWORD = answer.value_or("");
}

} // namespace quillmark

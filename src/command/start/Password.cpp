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
    if (!stream || (!std::getline(stream, line) && !stream.eof())) {
        throw CannotStart("the password file \"" + file + "\" cannot be read");
    }
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
    return promptForPassword(
        printable("Password of " + profile.USER_NAME + " at " + profile.HOST_NAME + ": "));
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
    if (!answer) {
        throw CannotStart("there is no password for " + profile.USER_NAME +
                          "; set QUILLMARK_PASSWORD or name a --password-file");
    }
    profile.USER_PASSWORD = *answer;
}

} // namespace quillmark

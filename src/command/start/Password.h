#pragma once

#include "command/options/Options.h"
#include "settings/Profile.h"

#include <optional>
#include <string>

namespace quillmark {

/// The password from the first line of --password-file, or else from QUILLMARK_PASSWORD; nullopt if
/// neither is given. Throws CannotStart if the file cannot be read.
std::optional<std::string> givenPassword(const Options& options);

/// Puts the password of a check into the profile: the given one, or else the stored one. Someone
/// who names a user on the command line is asked for it. Throws CannotStart if nobody answers;
/// without a terminal SFTP may do without a password.
void takePassword(const Options& options, Profile& profile);

/// Asks for the password of the profile's user, or for the passphrase of its key file; nullopt if
/// nobody answers.
std::optional<std::string> askForPassword(const Profile& profile);

} // namespace quillmark

#pragma once

#include "command/options/Options.h"
#include "settings/Profile.h"

#include <optional>
#include <string>

namespace quillmark {

/// The password that the command line leads to: the first line of --password-file, else
/// QUILLMARK_PASSWORD. Throws CannotStart when the file cannot be read.
std::optional<std::string> givenPassword(const Options& options);

/// Puts the password of a run into the profile: the given one, else the stored one, else, for a
/// user who is named on the command line, the answer to a prompt. Throws CannotStart when nobody
/// answers.
void takePassword(const Options& options, Profile& profile);

/// Asks for the password of the profile's user. Empty when nobody answers.
std::optional<std::string> askForPassword(const Profile& profile);

} // namespace quillmark

#pragma once

#include <optional>
#include <string>

namespace quillmark {

/// Whether there is a terminal to ask on.
bool canPrompt();

/// Asks for a password on the user's terminal, without showing it. nullopt if there is no terminal,
/// or if the user gives up with Ctrl-C or Ctrl-D. A signal that would end the program waits until
/// the terminal shows again what is typed.
std::optional<std::string> promptForPassword(const std::string& question);

} // namespace quillmark

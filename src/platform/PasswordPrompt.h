#pragma once

#include <optional>
#include <string>

namespace quillmark {

/// Asks for a password on the user's terminal, without showing it. Empty when there is no terminal,
/// or when the user gives up with Ctrl-C or Ctrl-D.
std::optional<std::string> promptForPassword(const std::string& question);

} // namespace quillmark

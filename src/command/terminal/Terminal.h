#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// Whether standard output should be coloured: asked for, or on a terminal that can, unless
/// NO_COLOR is set (https://no-color.org).
bool useColor(bool asked);

/// The text with control characters as "\x1B": names and references come from elsewhere and must
/// not steer the user's terminal.
std::string printable(std::string_view text);

} // namespace quillmark

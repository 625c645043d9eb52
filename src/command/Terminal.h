#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// Whether the stream (1 standard output, 2 standard error) is a terminal.
bool isTerminal(int stream);

/// The width of the terminal behind standard error, in columns; 80 when it does not tell.
std::size_t terminalWidth();

/// Whether standard output should be coloured: asked for, or on a terminal that can, unless NO_COLOR
/// is set (https://no-color.org).
bool useColor(bool asked);

/// The text with control characters as "\x1B": names and references come from elsewhere and must not
/// steer the user's terminal.
std::string printable(std::string_view text);

} // namespace quillmark

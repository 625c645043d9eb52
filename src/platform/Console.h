#pragma once

#include <cstddef>

namespace quillmark {

/// The standard streams of a program.
enum class Stream { Output = 1, Error = 2 };

/// Whether the stream leads to a terminal.
bool isTerminal(Stream stream);

/// The width of the terminal behind the stream, in columns; 80 if there is none or it does not say.
std::size_t terminalWidth(Stream stream);

} // namespace quillmark

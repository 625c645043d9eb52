#pragma once

#include <string_view>

namespace quillmark {

/// Whether to colour standard output: if asked to, or on a terminal that can show colours, unless
/// NO_COLOR is set (https://no-color.org).
bool useColor(bool asked);

/// Tells the user what is wrong, in one line on standard error. The text may hold any bytes.
void complain(std::string_view text);

} // namespace quillmark

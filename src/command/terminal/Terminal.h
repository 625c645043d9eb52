#pragma once

#include <string_view>

namespace quillmark {

/// Whether standard output should be coloured: asked for, or on a terminal that can, unless
/// NO_COLOR is set (https://no-color.org).
bool useColor(bool asked);

/// Tells the user in a line on standard error what is wrong. The text may hold names of any bytes.
void complain(std::string_view text);

} // namespace quillmark

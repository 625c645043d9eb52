#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// Makes a text safe to show on a terminal: names and references are written by strangers and must
/// not control it. Control characters (U+0000 to U+001F, U+007F to U+009F), characters that change
/// the direction of text (Unicode's bidirectional controls) and bytes that are not UTF-8 are
/// written byte by byte as "\x1B". The result is cut where it would take more than `columns`
/// columns.
std::string printable(std::string_view text, std::size_t columns = std::string_view::npos);

} // namespace quillmark

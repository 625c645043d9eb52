#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// The text as a terminal may get it: names and references come from elsewhere and must not steer
/// it. Control characters (U+0000 to U+001F, U+007F to U+009F), those that turn the direction of
/// text (Unicode's bidirectional controls), and bytes that are not UTF-8 become "\x1B", once for
/// each byte. Of a text that takes more columns, those are its beginning.
std::string printable(std::string_view text, std::size_t columns = std::string_view::npos);

} // namespace quillmark

#pragma once

#include <string_view>

namespace quillmark::web {

/// The name by which iconv knows the encoding of a label ("latin1" gives "WINDOWS-1252"), after
/// the table of WHATWG Encoding, 4.2; "" for a label that browsers do not know.
std::string_view encodingOf(std::string_view label);

} // namespace quillmark::web

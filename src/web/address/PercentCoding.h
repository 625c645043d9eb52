#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// Appends the text with each "%" and two hexadecimal digits as the byte that they stand for, once;
/// a "%" without them stays (WHATWG URL, section 1.3).
void appendPercentDecoded(std::string& result, std::string_view text);
std::string percentDecoded(std::string_view text);

/// The path as a reference has to write it: percent-encoded where the URL standard says so, and
/// where "?", "#", "%", "\" or "|" are part of a name; a ":" in the first segment is kept by "./".
std::string asReference(std::string_view path);

} // namespace quillmark::web

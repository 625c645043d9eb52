#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// Appends the text, with each "%" and two hexadecimal digits as the byte they stand for; any other
/// "%" stays (WHATWG URL, section 1.3). Decodes once: "%2541" becomes "%41".
void appendPercentDecoded(std::string& result, std::string_view text);
/// The same as a text of its own.
std::string percentDecoded(std::string_view text);

/// A decoded path as a reference must write it: percent-encoded where the URL standard says so, and
/// where "?", "#", "%", "\" or "|" are part of a name. With a ":" in its first segment it begins
/// with "./", since it would look like a scheme.
std::string asReference(std::string_view path);

} // namespace quillmark::web

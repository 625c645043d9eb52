#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The bytes as a JSON string (RFC 8259) that steers no terminal: what is not UTF-8 becomes U+FFFD.
std::string jsonText(std::string_view bytes);

/// The same, but null for no text.
std::string jsonTextOrNull(std::string_view bytes);

} // namespace quillmark

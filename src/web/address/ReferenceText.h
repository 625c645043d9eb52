#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// Browsers take a "\" for a "/" in addresses of the web.
constexpr bool isSlash(char c) {
    return c == '/' || c == '\\';
}

/// A reference without the blanks and control characters around it, and the tabs and line breaks in
/// it (WHATWG URL, section 4.4). A view of `text`, or of `cleaned`, which is only used if need be.
std::string_view cleanedReference(std::string_view text, std::string& cleaned);

/// Cuts off "#" and what follows, and returns that as far as ":~:"; nothing without a "#".
std::optional<std::string_view> cutFragment(std::string_view& text);

} // namespace quillmark::web

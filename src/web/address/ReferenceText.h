#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// Browsers take "\" for "/" in web addresses.
constexpr bool isSlash(char c) {
    return c == '/' || c == '\\';
}

/// A blank or control character: browsers take them away around a reference.
constexpr bool isBlankOrControl(char c) {
    return static_cast<unsigned char>(c) <= 0x20;
}

/// A reference without the blanks and control characters around it and the tabs and line breaks in
/// it (WHATWG URL, section 4.4). The result is a view of `text`, or of `cleaned` if something had
/// to be taken out of the middle.
std::string_view cleanedReference(std::string_view text, std::string& cleaned);

/// Cuts off "#" and what follows, and returns the fragment up to ":~:"; nothing without a "#".
std::optional<std::string_view> cutFragment(std::string_view& text);

/// Whether a fragment leads to the top of its page although no element has it as its id: the empty
/// one, and "top" in any letter case (WHATWG HTML, section 7.4.6.4).
bool isTopOfPage(std::string_view fragment);

/// Whether a fragment is an address for a script of the page: "/route" or "!/route".
bool isRoute(std::string_view fragment);

} // namespace quillmark::web

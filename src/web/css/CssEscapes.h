#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// The index behind the escape whose "\" is at index `at` (CSS Syntax, 4.3.7).
std::size_t afterEscape(std::string_view css, std::size_t at);

/// The most bytes that a text can have once its escapes are decoded: "\0" stands for three.
constexpr std::size_t unescapedBound(std::string_view raw) {
    return raw.size() + raw.size() / 2;
}

/// Writes a text with its escapes decoded, at most unescapedBound() bytes; returns the end of what
/// was written.
char* unescapeCss(std::string_view raw, char* to);

} // namespace quillmark::web

#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// Codes of ECMA-48 that switch a terminal's style on, and back to plain.
inline constexpr std::string_view PlainStyle = "\x1B[0m";
inline constexpr std::string_view Bold = "\x1B[1m";
inline constexpr std::string_view Dim = "\x1B[2m";
inline constexpr std::string_view Red = "\x1B[1;31m";
inline constexpr std::string_view Green = "\x1B[1;32m";
inline constexpr std::string_view Yellow = "\x1B[1;33m";

/// The text in the style, or as it is if `color` is false.
inline std::string styled(bool color, std::string_view style, const std::string& text) {
    return color ? std::string(style) + text + std::string(PlainStyle) : text;
}

/// "1 page", "2 pages".
template <typename Count>
std::string counted(Count count, const std::string& one, const std::string& many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace quillmark

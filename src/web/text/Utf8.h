#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark::web {

/// U+FFFD, which stands for bytes that are not a character.
inline constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

/// Writes a character (at most 0x10FFFF, no surrogate) as UTF-8; returns the number of bytes.
std::size_t writeUtf8(char32_t character, std::array<char, 4>& bytes);

/// How many bytes at the beginning of a text are valid UTF-8.
std::size_t validUtf8Prefix(std::string_view text);

/// Appends a text to `utf8`, with U+FFFD for whatever is not UTF-8 (WHATWG Encoding, 8.1.1).
void appendUtf8(std::string_view text, std::string& utf8);

/// The character of a byte from 0x80 to 0x9F in windows-1252.
char32_t windows1252(unsigned char byte);

/// Appends a text in windows-1252 to `utf8`.
void appendWindows1252(std::string_view text, std::string& utf8);

} // namespace quillmark::web

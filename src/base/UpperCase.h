#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// Whether every byte is below 0x80.
bool isAscii(std::string_view text);

/// The text with a to z in upper case and every other byte as it is. The length never changes, so
/// that a position found in the result is a position in the text.
std::string upperAscii(std::string_view text);

/// Like upperAscii(), but reuses the memory of `result`.
void upperAscii(std::string_view text, std::string& result);

/// The text in upper case as file names are compared: letters of every script when the text is
/// valid UTF-8 (simple case mapping of the Unicode character database), a to z otherwise.
std::string upperCase(std::string_view text);

} // namespace quillmark

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// The decimal number that a text begins with: blanks are skipped, a sign and a fraction are read,
/// and reading stops at the first character that cannot belong to the number. 0 without digits.
double leadingNumber(std::string_view text);

/// A number as a 16-bit field holds it, rounded to the nearest integer, halves to even.
/// Throws overflow() outside of -32768 to 32767.
std::int16_t toInt16(double number);

/// A number as a 32-bit size holds it, rounded alike; a number too large is held at 2147483647, so
/// that no listing line can end a run.
std::int32_t toInt32Held(double number);

/// The number with zeros on the left up to `digits` digits; a longer number keeps all of its
/// digits.
std::string zeroPadded(std::int64_t number, int digits);

} // namespace quillmark

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// The decimal number that a text begins with, 0 if there is none. Leading blanks are skipped, a
/// sign and a fraction are read, and reading stops at the first character that cannot belong to a
/// number.
double leadingNumber(std::string_view text);

/// Rounds a number to the nearest integer, halves to even. Throws overflow() outside of -32768 to
/// 32767.
std::int16_t toInt16(double number);

/// Rounds a size like toInt16(), but holds it between -2147483647 and 2147483647, so that no
/// listing line can end a run.
std::int32_t toInt32Held(double number);

/// The number with leading zeros up to `digits` digits. A longer number keeps all its digits.
std::string zeroPadded(std::int64_t number, int digits);

} // namespace quillmark

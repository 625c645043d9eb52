#pragma once

#include <string>

namespace quillmark {

/// A number of bytes, not below 0, as the report and the window show it: rounded to a whole number,
/// the separator between each three digits, and an empty text for zero.
std::string groupedThousands(double number, char separator);

/// The character that the user's locale puts between thousands; "," where the locale is not
/// installed or has none.
char userThousandsSeparator();

} // namespace quillmark

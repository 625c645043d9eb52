#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// Gives names that differ only in letter case, or in how their accents are composed, one common
/// form. Valid UTF-8 is case-folded and composed (Unicode NFC); in any other name only A to Z
/// become lower case.
std::string foldedName(std::string_view name);

/// The name with its accents composed (Unicode NFC); unchanged if it is not valid UTF-8.
std::string composedName(std::string_view name);

} // namespace quillmark

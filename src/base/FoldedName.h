#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The name in the one form that all its spellings share that differ in letter case or in how
/// accents are composed: case folded and composed (Unicode NFC) when it is valid UTF-8, with A to Z
/// in lower case otherwise.
std::string foldedName(std::string_view name);

/// The name with its accents composed (Unicode NFC); as it is when it is not valid UTF-8.
std::string composedName(std::string_view name);

} // namespace quillmark

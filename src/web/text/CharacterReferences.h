#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// What a character reference stands for.
struct CharacterReference {
    std::size_t length = 0;      ///< Its bytes in the source, from "&" on; 0 if it is only an "&".
    std::array<char, 8> bytes{}; ///< The text it stands for, as UTF-8.
    std::size_t size = 0;

    std::string_view text() const { return {bytes.data(), size}; }
};

/// Where a character reference stands. In the value of an attribute, a name without ";" counts only
/// if neither "=" nor a letter or digit follows, so that "?a=1&copy=2" stays what it is.
enum class ReferenceIn { Attribute, Text };

/// Reads the character reference at the start of a text that begins with "&" (WHATWG HTML,
/// 13.2.5.72 to 13.2.5.80).
CharacterReference readCharacterReference(std::string_view text, ReferenceIn in);

} // namespace quillmark::web

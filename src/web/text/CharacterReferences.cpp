#include "web/text/CharacterReferences.h"

#include "web/text/Ascii.h"
#include "web/text/Utf8.h"

#include <algorithm>

namespace quillmark::web {

namespace {

struct NamedReference {
    std::string_view name; ///< With its ";", if it has one.
    std::string_view text;
};

constexpr auto NamedReferences = std::to_array<NamedReference>({
#include "web/text/CharacterReferenceTable.inc"
});

/// The longest name that the text begins with, since "&notin;" is not "&not"; null if there is
/// none.
const NamedReference* findName(std::string_view text) {
    const NamedReference* longest = nullptr;
    const NamedReference* first = NamedReferences.begin();
    const NamedReference* last = NamedReferences.end();
    for (std::size_t i = 0; i < text.size() && first != last; ++i) {
        // The names that share the characters before i are narrowed to those that have text[i].
        const auto before = [i](const NamedReference& row, char c) {
            return row.name.size() <= i || row.name[i] < c;
        };
        const auto behind = [i](char c, const NamedReference& row) {
            return row.name.size() > i && c < row.name[i];
        };
        first = std::lower_bound(first, last, text[i], before);
        last = std::upper_bound(first, last, text[i], behind);
        if (first != last && first->name.size() == i + 1) {
            longest = first;
        }
    }
    return longest;
}

CharacterReference make(std::size_t length, std::string_view text) {
    CharacterReference reference;
    reference.length = length;
    reference.size = text.size();
    std::copy(text.begin(), text.end(), reference.bytes.begin());
    return reference;
}

/// What is no character becomes U+FFFD. 0x80 to 0x9F mean windows-1252: old editors wrote them so.
CharacterReference makeNumeric(std::size_t length, char32_t character) {
    if (character >= 0x80 && character <= 0x9F) {
        character = windows1252(static_cast<unsigned char>(character));
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character == 0 || character > 0x10FFFF || surrogate) {
        return make(length, ReplacementCharacter);
    }
    std::array<char, 4> bytes{};
    const std::size_t size = writeUtf8(character, bytes);
    return make(length, {bytes.data(), size});
}

CharacterReference readNumeric(std::string_view text) {
    const bool hexadecimal = text.size() > 2 && lowerAscii(text[2]) == 'x';
    const std::size_t digits = hexadecimal ? 3 : 2;
    char32_t character = 0;
    std::size_t i = digits;
    for (; i < text.size() && (hexadecimal ? hexDigit(text[i]) >= 0 : isDigit(text[i])); ++i) {
        const auto digit = static_cast<char32_t>(hexDigit(text[i]));
        character = std::min<char32_t>(character * (hexadecimal ? 16 : 10) + digit, 0x110000);
    }
    if (i == digits) {
        return {};
    }
    return makeNumeric(i < text.size() && text[i] == ';' ? i + 1 : i, character);
}

} // namespace

CharacterReference readCharacterReference(std::string_view text, ReferenceIn in) {
    if (text.size() < 2) {
        return {};
    }
    if (text[1] == '#') {
        return readNumeric(text);
    }
    const NamedReference* named = findName(text.substr(1));
    if (named == nullptr) {
        return {};
    }
    const std::size_t length = 1 + named->name.size();
    if (in == ReferenceIn::Attribute && named->name.back() != ';' && length < text.size() &&
        (text[length] == '=' || isLetter(text[length]) || isDigit(text[length]))) {
        return {};
    }
    return make(length, named->text);
}

} // namespace quillmark::web

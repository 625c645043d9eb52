#include "web/css/CssEscapes.h"

#include "web/text/Ascii.h"
#include "web/text/Utf8.h"

#include <algorithm>
#include <array>

namespace quillmark::web {

namespace {

constexpr std::size_t MostDigits = 6;

std::size_t countHexDigits(std::string_view text) {
    std::size_t digits = 0;
    while (digits < std::min(MostDigits, text.size()) && hexDigit(text[digits]) >= 0) {
        ++digits;
    }
    return digits;
}

/// The length of the one blank that ends an escape with digits, and belongs to it.
std::size_t blankLength(std::string_view text) {
    if (text.starts_with("\r\n")) {
        return 2;
    }
    return !text.empty() && isBlank(text[0]) ? 1 : 0;
}

char* writeCharacter(char32_t character, char* to) {
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character == 0 || character > 0x10FFFF || surrogate) {
        return std::copy(ReplacementCharacter.begin(), ReplacementCharacter.end(), to);
    }
    std::array<char, 4> bytes{};
    const std::size_t size = writeUtf8(character, bytes);
    return std::copy_n(bytes.begin(), size, to);
}

/// Writes what an escape stands for; `escape` is its text behind the "\".
char* writeEscaped(std::string_view escape, char* to) {
    const std::size_t digits = countHexDigits(escape);
    if (digits > 0) {
        char32_t character = 0;
        for (const char digit : escape.substr(0, digits)) {
            character = character * 16 + static_cast<char32_t>(hexDigit(digit));
        }
        return writeCharacter(character, to);
    }
    // An escaped line end joins two lines of a string.
    return !escape.empty() && (escape[0] == '\n' || escape[0] == '\r' || escape[0] == '\f')
               ? to
               : std::copy(escape.begin(), escape.end(), to);
}

} // namespace

std::size_t afterEscape(std::string_view css, std::size_t at) {
    const std::string_view escape = css.substr(std::min(at + 1, css.size()));
    const std::size_t digits = countHexDigits(escape);
    std::size_t length = digits + blankLength(escape.substr(digits));
    if (length == 0 && !escape.empty()) {
        length = 1;
    }
    return css.size() - escape.size() + length;
}

char* unescapeCss(std::string_view raw, char* to) {
    for (std::size_t at = 0; at < raw.size();) {
        if (raw[at] != '\\') {
            *to++ = raw[at++];
            continue;
        }
        const std::size_t after = afterEscape(raw, at);
        to = writeEscaped(raw.substr(at + 1, after - at - 1), to);
        at = after;
    }
    return to;
}

} // namespace quillmark::web

#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark::web {

/// Letters a to z for A to Z; every other byte as it is.
constexpr char lowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// The same of each byte of a text.
inline std::string lowerAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return lowerAscii(c); });
    return text;
}

constexpr bool isLetter(char c) {
    return lowerAscii(c) >= 'a' && lowerAscii(c) <= 'z';
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The value of a hexadecimal digit; -1 for any other character.
constexpr int hexDigit(char c) {
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = lowerAscii(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Tab, LF, FF, CR and space: the blanks between the parts of a tag or value.
constexpr bool isBlank(char c) {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f';
}

/// Whether two texts are equal but for the case of letters a to z.
constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (lowerAscii(a[i]) != lowerAscii(b[i])) {
            return false;
        }
    }
    return true;
}

/// Whether a text begins with `prefix`, whatever the case of letters a to z.
constexpr bool startsIgnoringCase(std::string_view text, std::string_view prefix) {
    return equalIgnoringCase(text.substr(0, prefix.size()), prefix);
}

/// The text without the blanks at its beginning and end.
constexpr std::string_view withoutOuterBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace quillmark::web

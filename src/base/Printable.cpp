#include "base/Printable.h"

#include <algorithm>

#include <utf8proc.h>

namespace quillmark {

namespace {

/// The first character of a text, or its first byte if no character begins there.
struct Sign {
    std::size_t bytes = 1;
    std::size_t columns = 0;
    bool isPrintable = false;
};

/// Whether the character changes the direction of the text around it, which can make one name look
/// like another.
bool turnsText(utf8proc_int32_t codePoint) {
    return codePoint == 0x61C || codePoint == 0x200E || codePoint == 0x200F ||
           (codePoint >= 0x202A && codePoint <= 0x202E) ||
           (codePoint >= 0x2066 && codePoint <= 0x2069);
}

Sign firstSign(std::string_view text) {
    utf8proc_int32_t codePoint = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
    if (length <= 0) {
        return {};
    }
    const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
    return {static_cast<std::size_t>(length),
            static_cast<std::size_t>(utf8proc_charwidth(codePoint)),
            !isControl && !turnsText(codePoint)};
}

/// Most names hold no other characters and need no look at the Unicode tables.
bool isPlain(char c) {
    return c >= 0x20 && c < 0x7F;
}

std::string escaped(std::string_view bytes) {
    static constexpr std::string_view HexDigits = "0123456789ABCDEF";
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text.append("\\x").append(1, HexDigits[code / 16]).append(1, HexDigits[code % 16]);
    }
    return text;
}

} // namespace

std::string printable(std::string_view text, std::size_t columns) {
    if (text.size() <= columns && std::all_of(text.begin(), text.end(), isPlain)) {
        return std::string(text);
    }
    std::string result;
    result.reserve(std::min(text.size(), columns));
    while (!text.empty()) {
        const Sign sign = firstSign(text);
        const std::string_view bytes = text.substr(0, sign.bytes);
        const std::string shown = sign.isPrintable ? std::string(bytes) : escaped(bytes);
        const std::size_t needed = sign.isPrintable ? sign.columns : shown.size();
        if (needed > columns) {
            break;
        }
        columns -= needed;
        result += shown;
        text.remove_prefix(bytes.size());
    }
    return result;
}

} // namespace quillmark

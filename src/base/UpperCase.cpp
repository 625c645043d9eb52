#include "base/UpperCase.h"

#include <algorithm>
#include <array>
#include <optional>

#include <utf8proc.h>

namespace quillmark {

namespace {

char upperAsciiCharacter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Nothing if the text is not valid UTF-8: the caller then folds ASCII letters only.
std::optional<std::string> upperUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        utf8proc_int32_t codePoint = 0;
        const auto length =
            utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                             static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
        if (length <= 0) {
            return std::nullopt;
        }
        std::array<utf8proc_uint8_t, 4> encoded{};
        const auto written = utf8proc_encode_char(utf8proc_toupper(codePoint), encoded.data());
        result.append(encoded.begin(), encoded.begin() + written);
        text.remove_prefix(static_cast<std::size_t>(length));
    }
    return result;
}

} // namespace

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void upperAscii(std::string_view text, std::string& result) {
    result.resize(text.size());
    std::transform(text.begin(), text.end(), result.begin(), upperAsciiCharacter);
}

std::string upperAscii(std::string_view text) {
    std::string result;
    upperAscii(text, result);
    return result;
}

std::string upperCase(std::string_view text) {
    if (!isAscii(text)) {
        if (auto upper = upperUtf8(text)) {
            return *std::move(upper);
        }
    }
    return upperAscii(text);
}

} // namespace quillmark

#include "web/address/PercentCoding.h"

#include "web/text/Ascii.h"

namespace quillmark::web {

namespace {

bool needsEncoding(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code <= 0x20 || code == 0x7F ||
           std::string_view("\"#%<>?\\^`{|}").find(c) != std::string_view::npos;
}

} // namespace

void appendPercentDecoded(std::string& result, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            const int high = hexDigit(text[i + 1]);
            const int low = hexDigit(text[i + 2]);
            if (high >= 0 && low >= 0) {
                result += static_cast<char>(high * 16 + low);
                i += 2;
                continue;
            }
        }
        result += text[i];
    }
}

std::string percentDecoded(std::string_view text) {
    std::string result;
    appendPercentDecoded(result, text);
    return result;
}

std::string asReference(std::string_view path) {
    static constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string result;
    if (path.substr(0, path.find('/')).find(':') != std::string_view::npos) {
        result = "./";
    }
    for (const char c : path) {
        if (!needsEncoding(c)) {
            result += c;
            continue;
        }
        const auto code = static_cast<unsigned char>(c);
        result.append(1, '%').append(1, Digits[code / 16]).append(1, Digits[code % 16]);
    }
    return result;
}

} // namespace quillmark::web

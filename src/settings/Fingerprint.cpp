#include "settings/Fingerprint.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr std::string_view KeyPrefix = "SHA256:";
constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr std::string_view HexDigitsInAnyCase = "0123456789ABCDEFabcdef";
// RFC 4648, section 4.
constexpr std::string_view Base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t Base64Length = 43; // Of 32 bytes, without the "=" at the end.

unsigned hexValue(char digit) {
    const auto at = static_cast<unsigned>(HexDigitsInAnyCase.find(digit));
    return at < HexDigits.size() ? at : at - 6;
}

/// Reads 64 hexadecimal digits, or 32 pairs of them with a ":" between two.
std::optional<Sha256> hexIn(std::string_view text) {
    std::string digits(text);
    const bool pairs = text.size() == 95; // 32 pairs of digits and the 31 colons between them.
    for (std::size_t i = 2; pairs && i < text.size(); i += 3) {
        if (text[i] != ':') {
            return std::nullopt;
        }
    }
    digits.erase(std::remove(digits.begin(), digits.end(), ':'), digits.end());
    Sha256 hash{};
    if ((!pairs && text.size() != 2 * hash.size()) || digits.size() != 2 * hash.size() ||
        digits.find_first_not_of(HexDigitsInAnyCase) != std::string::npos) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < hash.size(); ++i) {
        hash[i] =
            static_cast<std::uint8_t>(hexValue(digits[2 * i]) * 16 + hexValue(digits[2 * i + 1]));
    }
    return hash;
}

/// Reads 43 digits of base64, with or without the "=" that fills up their last group.
std::optional<Sha256> base64In(std::string_view text) {
    if (text.ends_with('=')) {
        text.remove_suffix(1);
    }
    if (text.size() != Base64Length) {
        return std::nullopt;
    }
    Sha256 hash{};
    std::uint32_t bits = 0;
    unsigned count = 0;
    std::size_t next = 0;
    for (const char digit : text) {
        const std::size_t value = Base64Digits.find(digit);
        if (value == std::string_view::npos) {
            return std::nullopt;
        }
        bits = bits << 6U | static_cast<std::uint32_t>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            hash.at(next++) = static_cast<std::uint8_t>(bits >> count);
        }
    }
    // The last digit has two bits to spare. No tool prints a fingerprint that sets them.
    return keyFingerprint(hash).ends_with(text) ? std::optional(hash) : std::nullopt;
}

} // namespace

std::string certificateFingerprint(const Sha256& hash) {
    std::string text;
    for (const std::uint8_t byte : hash) {
        text += text.empty() ? "" : ":";
        text += HexDigits[byte / 16];
        text += HexDigits[byte % 16];
    }
    return text;
}

std::string keyFingerprint(const Sha256& hash) {
    std::string text(KeyPrefix);
    std::uint32_t bits = 0;
    unsigned count = 0;
    for (const std::uint8_t byte : hash) {
        bits = bits << 8U | byte;
        for (count += 8; count >= 6;) {
            count -= 6;
            text += Base64Digits[bits >> count & 63U];
        }
    }
    // Four bits are left over: zeros fill up the last digit.
    text += Base64Digits[bits << (6 - count) & 63U];
    return text;
}

std::optional<Sha256> fingerprintIn(std::string_view text) {
    return text.starts_with(KeyPrefix) ? base64In(text.substr(KeyPrefix.size())) : hexIn(text);
}

} // namespace quillmark

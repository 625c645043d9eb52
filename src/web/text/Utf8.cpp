#include "web/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace quillmark::web {

namespace {

constexpr std::array<char16_t, 32> Windows1252Controls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Lead {
    std::size_t following; ///< Bytes that follow the first one; 0 for a byte that starts nothing.
    unsigned char low;     ///< The range of the second byte.
    unsigned char high;
};

/// What may follow a first byte (WHATWG Encoding, 8.1.1). The range of the second byte is narrowed
/// so that nothing overlong, no surrogate and nothing above U+10FFFF is valid.
Lead leadOf(unsigned char byte) {
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    }
    return {0, 0, 0};
}

/// A character, or as much of a broken one as a single U+FFFD replaces.
struct Sequence {
    std::size_t length;
    bool valid;
};

Sequence sequenceAt(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) {
        return {1, true};
    }
    Lead lead = leadOf(first);
    if (lead.following == 0) {
        return {1, false};
    }
    for (std::size_t i = 1; i <= lead.following; ++i) {
        const auto byte = static_cast<unsigned char>(i < text.size() ? text[i] : '\0');
        if (byte < lead.low || byte > lead.high) {
            return {i, false};
        }
        lead.low = 0x80;
        lead.high = 0xBF;
    }
    return {lead.following + 1, true};
}

/// How many bytes at the start are ASCII, in steps of eight: most pages are ASCII, and eight bytes
/// are tested at once.
std::size_t asciiBlocks(std::string_view text) {
    constexpr std::uint64_t HighBits = 0x8080808080808080U;
    std::size_t length = 0;
    std::uint64_t block = 0;
    while (text.size() - length >= sizeof block) {
        std::memcpy(&block, text.data() + length, sizeof block);
        if ((block & HighBits) != 0) {
            break;
        }
        length += sizeof block;
    }
    return length;
}

} // namespace

std::size_t writeUtf8(char32_t character, std::array<char, 4>& bytes) {
    if (character < 0x80) {
        bytes[0] = static_cast<char>(character);
        return 1;
    }
    const std::size_t length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    for (std::size_t i = length - 1; i > 0; --i) {
        bytes.at(i) = static_cast<char>(0x80U | (character & 0x3FU));
        character >>= 6U;
    }
    // As many leading 1 bits as the character has bytes.
    bytes[0] = static_cast<char>((0xF00U >> length & 0xFFU) | character);
    return length;
}

std::size_t validUtf8Prefix(std::string_view text) {
    std::size_t valid = 0;
    while (true) {
        valid += asciiBlocks(text.substr(valid));
        if (valid == text.size()) {
            return valid;
        }
        const Sequence sequence = sequenceAt(text.substr(valid));
        if (!sequence.valid) {
            return valid;
        }
        valid += sequence.length;
    }
}

void appendUtf8(std::string_view text, std::string& utf8) {
    while (!text.empty()) {
        const std::size_t valid = validUtf8Prefix(text);
        utf8.append(text.substr(0, valid));
        text.remove_prefix(valid);
        if (!text.empty()) {
            utf8.append(ReplacementCharacter);
            text.remove_prefix(sequenceAt(text).length);
        }
    }
}

char32_t windows1252(unsigned char byte) {
    return Windows1252Controls.at(byte - 0x80U);
}

void appendWindows1252(std::string_view text, std::string& utf8) {
    utf8.reserve(utf8.size() + text.size() + text.size() / 8);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            utf8.push_back(c);
            continue;
        }
        std::array<char, 4> bytes{};
        const std::size_t length =
            writeUtf8(byte < 0xA0 ? windows1252(byte) : char32_t(byte), bytes);
        utf8.append(bytes.data(), length);
    }
}

} // namespace quillmark::web

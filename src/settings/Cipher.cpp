#include "settings/Cipher.h"

#include "base/Failure.h"
#include "base/Version.h"

#include <array>

namespace quillmark {

namespace {

constexpr int FirstPrintable = ';';

// Three bytes become four characters: the lower six bits of each byte, then the upper two bits of
// all three:
//
//     byte        1     2     3           characters   low 1 | low 2 | low 3 | highs
//     highs bits  5-4   3-2   1-0
//
// A shorter last group has fewer lows, but ends with its highs as well.
constexpr std::size_t BytesInGroup = 3;
constexpr std::array<int, BytesInGroup> HighFactors = {16, 4, 1};

int byteCode(char c) {
    return static_cast<unsigned char>(c);
}

char printable(int sixBits) {
    return static_cast<char>(sixBits + FirstPrintable);
}

void appendStretched(std::string& result, std::string_view bytes) {
    int highs = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const int code = byteCode(bytes[i]);
        result += printable(code & 63);
        highs |= code / 64 * HighFactors.at(i);
    }
    result += printable(highs);
}

void appendShrunk(std::string& result, std::string_view characters) {
    const int highs = byteCode(characters.back()) - FirstPrintable;
    characters.remove_suffix(1);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const int low = byteCode(characters[i]) - FirstPrintable;
        if (low < 0) {
            throw invalidProcedureCall();
        }
        result += static_cast<char>(((highs / HighFactors.at(i)) & 3) * 64 | low);
    }
}

} // namespace

void Cipher::KeyString(std::string_view key) {
    SeedFromKey(key);
}

void Cipher::SeedFromKey(std::string_view key) {
    generator_.mix(generator_.reseed(-1));
    for (const char c : key) {
        // Each character moves the generator on, so that their order counts.
        const double product = double{generator_.next()} * byteCode(c);
        generator_.mix(generator_.reseed(static_cast<float>(-product)));
    }
}

void Cipher::DoXor() {
    for (char& c : text_) {
        c = static_cast<char>(byteCode(c) ^ static_cast<int>(generator_.next() * 256));
    }
}

void Cipher::Stretch() {
    std::string stretched;
    for (std::string_view rest = text_; !rest.empty();) {
        const std::string_view group = rest.substr(0, BytesInGroup);
        appendStretched(stretched, group);
        rest.remove_prefix(group.size());
    }
    text_ = stretched;
}

void Cipher::Shrink() {
    if (text_.empty()) {
        throw invalidProcedureCall();
    }
    std::string shrunk;
    for (std::string_view rest = text_; !rest.empty();) {
        const std::string_view group = rest.substr(0, BytesInGroup + 1);
        appendShrunk(shrunk, group);
        rest.remove_prefix(group.size());
    }
    text_ = shrunk;
}

std::string EncryptPassword(std::string_view clear) {
    if (clear.empty()) {
        return {};
    }
    Cipher cipher;
    cipher.KeyString(ApplicationTitle);
    cipher.Text(clear);
    cipher.DoXor();
    cipher.Stretch();
    return cipher.Text();
}

std::string DecryptPassword(std::string_view stored) {
    if (stored.empty()) {
        return {};
    }
    Cipher cipher;
    cipher.KeyString(ApplicationTitle);
    cipher.Text(stored);
    cipher.Shrink();
    cipher.DoXor();
    return cipher.Text();
}

} // namespace quillmark

#include "web/page/Positions.h"

#include <algorithm>
#include <cstddef>

namespace quillmark::web {

namespace {

/// Counts the bytes for which `is` is true. It counts in short stretches whose sum fits a byte, so
/// that the compiler can count many bytes at a time.
template <class Is> std::uint32_t countBytes(std::string_view text, Is is) {
    constexpr std::size_t Stretch = 128;
    std::uint32_t count = 0;
    while (!text.empty()) {
        std::uint8_t few = 0;
        for (const char c : text.substr(0, Stretch)) {
            few = static_cast<std::uint8_t>(few + (is(c) ? 1 : 0));
        }
        count += few;
        text.remove_prefix(std::min(Stretch, text.size()));
    }
    return count;
}

/// Counts characters of UTF-8: all bytes but those that continue a character.
std::uint32_t countCharacters(std::string_view text, bool ascii) {
    if (ascii) {
        return static_cast<std::uint32_t>(text.size());
    }
    return countBytes(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; });
}

/// Counts line ends in a stretch of a page that has CRs; a CR LF counts where its LF is.
std::uint32_t countLineEnds(std::string_view stretch, const char* end) {
    std::uint32_t count = countBytes(stretch, [](char c) { return c == '\n' || c == '\r'; });
    for (std::size_t i = stretch.find('\r'); i != std::string_view::npos;
         i = stretch.find('\r', i + 1)) {
        const char* next = stretch.data() + i + 1;
        count -= next < end && *next == '\n' ? 1 : 0;
    }
    return count;
}

} // namespace

Position Positions::at(const char* place) {
    const std::string_view stretch(counted_, static_cast<std::size_t>(place - counted_));
    const std::uint32_t lines =
        source_.carriageReturns ? countLineEnds(stretch, source_.text.data() + source_.text.size())
                                : countBytes(stretch, [](char c) { return c == '\n'; });
    if (lines == 0) {
        position_.column += countCharacters(stretch, source_.ascii);
    } else {
        const std::string_view lastLine = stretch.substr(
            (source_.carriageReturns ? stretch.find_last_of("\n\r") : stretch.rfind('\n')) + 1);
        position_.line += lines;
        position_.column = 1 + countCharacters(lastLine, source_.ascii);
    }
    counted_ = place;
    return position_;
}

} // namespace quillmark::web

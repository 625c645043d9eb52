#include "web/verdict/NearNames.h"

#include "web/text/Ascii.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>

namespace quillmark::web {

namespace {

constexpr std::size_t LongestName = 256;

bool isPlain(char c) {
    return isLetter(c) || isDigit(c) || static_cast<unsigned char>(c) >= 0x80;
}

/// The letters and digits of a name, in lower case.
std::string plain(std::string_view name) {
    std::string result;
    for (const char c : name) {
        if (isPlain(c)) {
            result += lowerAscii(c);
        }
    }
    return result;
}

/// The length of a name without its extension or final "/", which many names share.
std::size_t stemLength(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot != std::string_view::npos && dot > 0) {
        return dot;
    }
    return name.size() - (name.ends_with('/') ? 1 : 0);
}

/// The shorter a name, the more names are a single edit away from it by chance.
std::size_t mostEdits(std::size_t stem) {
    return stem < 3 ? 0 : std::max<std::size_t>(1, (stem + 1) / 4);
}

/// The set of characters in a name, as bits. Each character that the other name lacks costs an
/// edit, so most candidates are ruled out without computing a distance.
std::uint64_t characters(std::string_view name) {
    std::uint64_t mask = 0;
    for (const char c : name) {
        mask |= std::uint64_t{1} << (static_cast<unsigned char>(c) % 64U);
    }
    return mask;
}

std::size_t difference(std::size_t a, std::size_t b) {
    return a > b ? a - b : b - a;
}

} // namespace

std::optional<std::size_t> NearNames::nearest(std::string_view name,
                                              const std::vector<std::string_view>& names) {
    if (name.empty() || name.size() > LongestName) {
        return std::nullopt;
    }
    const std::string plainName = plain(name);
    const std::uint64_t mask = characters(name);
    std::size_t most = mostEdits(stemLength(name));
    std::optional<std::size_t> best;
    for (std::size_t i = 0; i < names.size() && patience_ > 0; ++i) {
        const std::string_view candidate = names[i];
        --patience_;
        if (difference(candidate.size(), name.size()) <= 4 && !plainName.empty() &&
            plain(candidate) == plainName) {
            return i;
        }
        const auto missing = static_cast<std::size_t>(std::popcount(mask & ~characters(candidate)));
        if (difference(candidate.size(), name.size()) > most || missing > most) {
            continue;
        }
        const std::size_t edits = distance(name, candidate, most);
        if (edits <= most) {
            best = i;
            most = edits == 0 ? 0 : edits - 1;
        }
    }
    return best;
}

/// The number of edits from one name to the other, or any number above `most`.
std::size_t NearNames::distance(std::string_view a, std::string_view b, std::size_t most) {
    patience_ -= std::min(patience_, a.size() * b.size());
    row_.resize(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row_[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row_[0];
        row_[0] = i;
        std::size_t smallest = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row_[j];
            row_[j] = std::min({changed, row_[j] + 1, row_[j - 1] + 1});
            smallest = std::min(smallest, row_[j]);
        }
        if (smallest > most) {
            return smallest;
        }
    }
    return row_[b.size()];
}

} // namespace quillmark::web

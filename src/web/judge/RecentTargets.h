#pragma once

#include "base/Hash.h"
#include "web/judge/JudgedPage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmark::web {

/// The files that earlier references of a page led to, by the text in front of their "#". In
/// documentation most references name a file that the page named before: they need no resolving and
/// no lookup. A small table is enough; a new entry overwrites the one in its place.
class RecentTargets {
public:
    struct Entry {
        std::string_view text; ///< A view into the page; without data the place is free.
        JudgedReference::Target target = JudgedReference::Target::File;
        std::uint32_t file = 0;
        bool ownPage = false;
        bool fromTop = false;
    };

    void clear() { entries_.fill({}); }
    void add(const Entry& entry) { entries_.at(placeOf(entry.text)) = entry; }
    /// Null if the text is not known.
    const Entry* find(std::string_view text) const {
        const Entry& entry = entries_.at(placeOf(text));
        return entry.text.data() != nullptr && entry.text == text ? &entry : nullptr;
    }

private:
    static constexpr std::size_t Size = 256;

    static std::size_t placeOf(std::string_view text) { return hashOf(text) % Size; }

    std::array<Entry, Size> entries_;
};

} // namespace quillmark::web

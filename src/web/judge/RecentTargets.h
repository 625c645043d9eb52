#pragma once

#include "base/Hash.h"
#include "web/judge/JudgedPage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmark::web {

/// The files that references of one page led to, by what stands in front of their "#". Most
/// references of documentation name a file that the page named before: nothing has to be resolved
/// or looked up for them. A newer file takes the place of an older one.
class RecentTargets {
public:
    struct Entry {
        std::string_view text; ///< Of the page; without data there is none.
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

#pragma once

#include "web/page/Names.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quillmark::web {

/// An attribute of a tag: its value as written, without the quotes.
struct TagAttribute {
    Attribute name = Attribute::Other;
    std::string_view raw;
};

/// A start or end tag with those of its attributes that the readers know.
class Tag {
public:
    Element element = Element::Other;
    bool isEnd = false;
    bool selfClosing = false;     ///< It ends in "/>".
    const char* start = nullptr;  ///< Its "<".
    const char* behind = nullptr; ///< The byte behind its ">".

    /// In source order.
    std::span<const TagAttribute> attributes() const { return {attributes_.data(), count_}; }
    bool has(Attribute name) const { return (seen_ & bit(name)) != 0; }
    /// The value as written; "" without the attribute.
    std::string_view raw(Attribute name) const {
        if (has(name)) {
            for (const TagAttribute& attribute : attributes()) {
                if (attribute.name == name) {
                    return attribute.raw;
                }
            }
        }
        return {};
    }

    void clearAttributes() {
        count_ = 0;
        seen_ = 0;
    }
    /// Of several attributes with one name the first counts.
    void add(Attribute name, std::string_view raw) {
        if (name != Attribute::Other && !has(name)) {
            seen_ |= bit(name);
            attributes_[count_++] = {name, raw};
        }
    }

private:
    static std::uint64_t bit(Attribute name) { return 1ULL << static_cast<unsigned>(name); }

    std::array<TagAttribute, 64> attributes_; // As many as bits: each name is there once at most.
    std::size_t count_ = 0;
    std::uint64_t seen_ = 0;
};

} // namespace quillmark::web

#include "web/page/Names.h"

#include "web/page/PageContent.h"
#include "web/text/Ascii.h"

#include <array>

namespace quillmark::web {

namespace {

#define QUILLMARK_WEB_NAME(NAME, TEXT) std::string_view(TEXT),

constexpr auto ElementNames = std::to_array({QUILLMARK_WEB_ELEMENTS(QUILLMARK_WEB_NAME)});
constexpr auto AttributeNames = std::to_array({QUILLMARK_WEB_ATTRIBUTES(QUILLMARK_WEB_NAME)});

#undef QUILLMARK_WEB_NAME

constexpr NameKey keyOf(std::string_view name) {
    NameKey key;
    for (const char c : name) {
        key.append(static_cast<unsigned char>(lowerAscii(c)));
    }
    return key;
}

/// A hash table of the known names, made by the compiler. Keys lie close together in memory, since
/// each tag and attribute of a page is looked up.
class NameTable {
public:
    template <std::size_t Count>
    explicit constexpr NameTable(const std::array<std::string_view, Count>& names) {
        static_assert(Count < Slots / 2 && Count < 256);
        for (std::size_t i = 1; i < Count; ++i) { // Name 0 stands for all others.
            names_[i] = names[i];
            std::size_t slot = firstSlot(keyOf(names[i]));
            while (indices_[slot] != 0) {
                slot = (slot + 1) % Slots;
            }
            keys_[slot] = keyOf(names[i]).characters;
            indices_[slot] = static_cast<std::uint8_t>(i);
        }
    }

    /// The index of a name, 0 for an unknown one.
    std::uint8_t find(std::string_view name, NameKey key) const {
        for (std::size_t slot = firstSlot(key); indices_[slot] != 0; slot = (slot + 1) % Slots) {
            if (keys_[slot] == key.characters && isNamed(name, names_[indices_[slot]])) {
                return indices_[slot];
            }
        }
        return 0;
    }

private:
    static constexpr std::size_t Slots = 512;

    static constexpr std::size_t firstSlot(NameKey key) {
        return static_cast<std::size_t>((key.characters * 0x9E3779B97F4A7C15U) >> 55U);
    }

    /// Whether a name is the known one with the same key. Names of up to eight characters are, if
    /// the length is the same.
    static bool isNamed(std::string_view name, std::string_view known) {
        return name.size() == known.size() &&
               (name.size() <= sizeof(NameKey) || equalIgnoringCase(name, known));
    }

    std::array<std::uint64_t, Slots> keys_{};
    std::array<std::uint8_t, Slots> indices_{};
    std::array<std::string_view, 256> names_{};
};

constexpr NameTable ElementTable(ElementNames);
constexpr NameTable AttributeTable(AttributeNames);

} // namespace

Element findElement(std::string_view name, NameKey key) {
    return static_cast<Element>(ElementTable.find(name, key));
}

Element findElement(std::string_view name) {
    return findElement(name, keyOf(name));
}

Attribute findAttribute(std::string_view name, NameKey key) {
    return static_cast<Attribute>(AttributeTable.find(name, key));
}

Attribute findAttribute(std::string_view name) {
    return findAttribute(name, keyOf(name));
}

PlaceName placeName(std::uint16_t place) {
    return {ElementNames.at(place >> 8U), AttributeNames.at(place & 0xFFU)};
}

} // namespace quillmark::web

#include "web/site/PathTable.h"

#include "base/Hash.h"

#include <algorithm>

namespace quillmark::web {

void PathTable::insert(std::string_view path, std::uint32_t number) {
    // At most half full: then a free place is next to nearly every one.
    if ((entries_.size() + 1) * 2 > places_.size()) {
        grow();
    }
    const std::uint64_t hash = hashOf(path);
    entries_.push_back({path, hash, number});
    places_[freePlace(hash)] = static_cast<std::uint32_t>(entries_.size());
}

std::optional<std::uint32_t> PathTable::find(std::string_view path) const {
    if (places_.empty()) {
        return std::nullopt;
    }
    const std::uint64_t hash = hashOf(path);
    const std::size_t mask = places_.size() - 1;
    for (std::size_t place = hash & mask; places_[place] != 0; place = (place + 1) & mask) {
        const Entry& entry = entries_[places_[place] - 1];
        if (entry.hash == hash && entry.path == path) {
            return entry.number;
        }
    }
    return std::nullopt;
}

std::size_t PathTable::freePlace(std::uint64_t hash) const {
    const std::size_t mask = places_.size() - 1;
    std::size_t place = hash & mask;
    while (places_[place] != 0) {
        place = (place + 1) & mask;
    }
    return place;
}

void PathTable::grow() {
    constexpr std::size_t Smallest = 64;
    places_.assign(std::max(Smallest, places_.size() * 2), 0);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        places_[freePlace(entries_[i].hash)] = static_cast<std::uint32_t>(i + 1);
    }
}

} // namespace quillmark::web

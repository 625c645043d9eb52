#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// From paths to numbers, with one probe and one comparison for nearly every question. The paths'
/// bytes must outlive the table. Questions may be asked by several threads at once.
class PathTable {
public:
    /// Remembers the number of a path that is not in the table yet.
    void insert(std::string_view path, std::uint32_t number);
    std::optional<std::uint32_t> find(std::string_view path) const;
    bool empty() const { return entries_.empty(); }

private:
    struct Entry {
        std::string_view path;
        std::uint64_t hash;
        std::uint32_t number;
    };

    std::size_t freePlace(std::uint64_t hash) const;
    void grow();

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> places_; ///< Index into entries_ plus 1; 0 is free. A power of two.
};

} // namespace quillmark::web

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Numbers by path: a hash table with one probe and one comparison for nearly every question. The
/// bytes of the paths must outlive the table. Several threads may ask at once.
class PathTable {
public:
    /// Remembers the number of a path that is not in the table yet.
    void insert(std::string_view path, std::uint32_t number);
    /// The number of exactly this path.
    std::optional<std::uint32_t> find(std::string_view path) const;

private:
    struct Entry {
        std::string_view path;
        std::uint64_t hash;
        std::uint32_t number;
    };

    std::size_t freePlace(std::uint64_t hash) const;
    void grow();

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> places_; ///< Index into entries_ plus 1; 0 is free. Its size is a
                                        ///< power of two.
};

} // namespace quillmark::web

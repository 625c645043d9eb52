#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Finds the name that somebody most likely meant: the one that is equal but for case and
/// punctuation, or else the one with the fewest edits (Levenshtein), about one per four characters
/// of the name without its extension. An object's patience is limited: after comparing some hundred
/// million characters it finds nothing more, so that a site full of mistakes is checked as fast as
/// any other.
class NearNames {
public:
    /// Index of the nearest of the names; the first of several. Nothing if none is near.
    std::optional<std::size_t> nearest(std::string_view name,
                                       const std::vector<std::string_view>& names);

private:
    std::size_t distance(std::string_view a, std::string_view b, std::size_t most);

    std::vector<std::size_t> row_;
    std::size_t patience_ = 400'000'000;
};

} // namespace quillmark::web

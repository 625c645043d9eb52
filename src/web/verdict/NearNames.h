#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Finds among names the one that somebody most likely meant: equal but for case and punctuation,
/// or the fewest edits away (Levenshtein), about one for four characters of the name without its
/// extension. One object has a limited patience: once it compared some hundred million characters
/// it finds nothing more, so that a site of nothing but mistakes ends as soon as any other.
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

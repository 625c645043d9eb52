#pragma once

#include "findings/Finding.h"
#include "web/site/Inventory.h"
#include "web/site/Spellings.h"
#include "web/verdict/NearNames.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillmark::web {

/// What a path that leads nowhere most likely means.
struct Meaning {
    FindingKind kind = FindingKind::Missing;
    std::optional<std::string> path; ///< Relative to the top of the site.
};

/// Finds out what paths that lead nowhere were meant to be. Each path is thought about once, and no
/// question walks the whole site.
class Meanings {
public:
    /// `extensions` are those of pages, lower case: "html".
    Meanings(const Inventory& inventory, const Spellings& spellings,
             const std::vector<std::string>& extensions);

    /// The meaning of a path relative to the top of the site. The path's bytes must outlive this
    /// object.
    const Meaning& of(std::string_view path);

private:
    Meaning find(std::string_view path);
    std::optional<std::string> sameNameElsewhere(std::string_view path) const;
    std::optional<std::string> nearNameInFolder(std::string_view path);
    std::optional<std::string> nearFolder(std::string_view path);

    const Inventory& inventory_;
    const Spellings& spellings_;
    const std::vector<std::string>& extensions_;
    NearNames near_;
    std::unordered_map<std::string_view, std::vector<std::uint32_t>> byName_;      ///< Files.
    std::unordered_map<std::string_view, std::vector<std::string_view>> byFolder_; ///< Names.
    std::unordered_map<std::string_view, Meaning> known_;
};

} // namespace quillmark::web

#pragma once

#include "findings/SiteResults.h"
#include "web/page/PageContent.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillmark::web {

/// A wrong reference, before anybody has asked what was meant.
struct OpenFinding {
    FindingKind kind = FindingKind::Missing;
    Place at;
    std::string_view reference;
    std::uint32_t target = 0; ///< For SiteResults::path(), or NoTarget.
    Role role = Role::Link;
    bool fromTop = false;
};
inline constexpr std::uint32_t NoTarget = UINT32_MAX;

/// A fragment to judge once the page that it leads to has been read.
struct OpenFragment {
    std::uint32_t page = 0;    ///< Index of the page that refers to it.
    std::uint32_t ordinal = 0; ///< Index of the reference in PageContent::references.
    std::uint32_t target = 0;
    bool missing = false; ///< A fragment of its own page, which lacks it.
    bool svgUse = false;  ///< From an element of SVG: judged in .svg files, too.
    std::uint64_t rawHash = 0;
    std::uint64_t decodedHash = 0;
};

/// What is kept of a page beside its references.
struct PageNotes {
    PageKind kind = PageKind::Html;
    bool read = false;              ///< Its ids are known.
    std::vector<std::uint64_t> ids; ///< Hashes, ascending.
};

/// What is left to be judged when all pages have been read.
struct Discovered {
    std::vector<PageNotes> notes;                         ///< By page.
    std::vector<std::uint32_t> pageOfTarget;              ///< By target; NoTarget for none.
    std::unordered_map<std::uint32_t, std::string> bases; ///< By page: a base href's path.
    std::vector<OpenFinding> findings;
    std::deque<OpenFragment> fragments;
    std::vector<std::string> troubles; ///< Lines for the user.

    /// The page of a target; null if it was not read, or not yet.
    const PageNotes* readPage(std::uint32_t target) const;
    /// Whether its page was read and has no part of that name.
    bool isMissing(const OpenFragment& open) const;
};

} // namespace quillmark::web

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

/// A reference that is wrong, before anybody asked what was meant.
struct OpenFinding {
    FindingKind kind = FindingKind::Missing;
    Place at;
    std::string_view reference;
    std::uint32_t target = 0; ///< Index for SiteResults::path(), or NoTarget.
    Role role = Role::Link;
    bool fromTop = false;
};
inline constexpr std::uint32_t NoTarget = UINT32_MAX;

/// A fragment that can be judged once its page was read.
struct OpenFragment {
    std::uint32_t page = 0;    ///< That refers to it: index of a page.
    std::uint32_t ordinal = 0; ///< Of the reference in PageContent::references.
    std::uint32_t target = 0;
    bool missing = false; ///< The page itself knew.
    bool svgUse = false;
    std::uint64_t rawHash = 0;
    std::uint64_t decodedHash = 0;
};

/// What is known of a page beside its references.
struct PageNotes {
    PageKind kind = PageKind::Html;
    bool read = false;              ///< Its ids are known.
    std::vector<std::uint64_t> ids; ///< Hashes, ascending.
};

/// What the reading of all pages leaves to be judged.
struct Discovered {
    std::vector<PageNotes> notes;                         ///< By page.
    std::vector<std::uint32_t> pageOfTarget;              ///< By target; NoTarget for none.
    std::unordered_map<std::uint32_t, std::string> bases; ///< By page: a base href's path.
    std::vector<OpenFinding> findings;
    std::deque<OpenFragment> fragments;
    std::vector<std::string> troubles; ///< Lines for the user.

    /// The page of a target; null if it was not read, or not yet.
    const PageNotes* readPage(std::uint32_t target) const;
    /// Whether no part of its page has the name, as far as the page was read.
    bool isMissing(const OpenFragment& open) const;
};

} // namespace quillmark::web

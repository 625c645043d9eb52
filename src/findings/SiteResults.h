#pragma once

#include "findings/Finding.h"
#include "store/TextStore.h"

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// A file of the inventory.
struct SiteFile {
    std::string_view path; ///< Full path.
    std::uint64_t size = 0;
    bool link = false;   ///< A symbolic link, to a file or to nothing.
    bool hidden = false; ///< Its name, or that of a folder on the way, begins with ".".
    bool used = false;   ///< A reference reached it.
};

/// A page that was read: any file whose references count.
struct SitePage {
    std::uint32_t target = 0;         ///< Its address: index for SiteResults::path().
    std::uint32_t firstReference = 0; ///< Index into SiteResults::references.
};

/// A reference that leads to a path of the site, whether something is there or not.
struct SiteReference {
    std::uint32_t target = 0; ///< Index for SiteResults::path().
    std::uint32_t line = 1;
    std::uint32_t column = 1;
};

/// A web address that was asked, once for all references to it.
struct AskedAddress {
    std::string_view address;           ///< Without a fragment.
    std::string_view leadsTo;           ///< Where its redirects ended; empty without any.
    std::uint16_t status = 0;           ///< The last answer's; 0 without one.
    std::optional<FindingKind> verdict; ///< nullopt: it is sound.
};

/// How many findings there are of a kind.
struct KindTotal {
    std::uint32_t errors = 0;
    std::uint32_t notes = 0;
    std::uint32_t targets = 0; ///< Different targets among the errors and notes.
};

using KindTotals = std::array<KindTotal, FindingKinds>; ///< By kind.

/// How many errors there are of all kinds.
std::size_t totalErrors(const KindTotals& totals);

/// All that a check with the web rules finds. Paths are full paths in "/" form, as bytes; every
/// text lives as long as the results do.
struct SiteResults {
    bool filled = false;  ///< A check with the web rules wrote these.
    std::string_view top; ///< The folder that is the top of the site, with its final "/".
    std::vector<std::string_view> folders; ///< Below the top, each with its final "/".
    std::vector<SiteFile> files;           ///< In the order of the walk.
    /// What references lead to besides the files: files reached through a folder that is a link,
    /// folders without an index page, and what is not there.
    std::vector<std::string_view> otherTargets;

    std::vector<SitePage> pages;           ///< In the order of their discovery.
    std::deque<SiteReference> references;  ///< Page by page, in the order of their source.
    std::vector<Finding> findings;         ///< Page by page, in the order of their source.
    std::vector<IgnoredReference> ignored; ///< The same.
    std::vector<AskedAddress> addresses;   ///< In the order in which references name them first.
    std::vector<std::uint32_t> unused;     ///< Indices of files.
    std::vector<std::vector<std::uint32_t>> duplicates; ///< Groups of files with equal bytes.
    bool duplicatesKnown = false;                       ///< They were looked for.
    KindTotals totals{};

    TextStore texts;

    /// The full path of a target: indices beyond the files are those of otherTargets.
    std::string_view path(std::uint32_t target) const {
        return target < files.size() ? files[target].path : otherTargets[target - files.size()];
    }
    std::string_view pagePath(std::uint32_t page) const { return path(pages[page].target); }
    /// The path from the top of the site on; a path outside it comes back as it is.
    std::string_view fromTop(std::string_view fullPath) const {
        return fullPath.starts_with(top) ? fullPath.substr(top.size()) : fullPath;
    }
    /// How many findings are errors.
    std::size_t errors() const { return totalErrors(totals); }
};

/// The totals of the findings, without those whose index is true in `known`, which may be shorter.
KindTotals countFindings(const std::vector<Finding>& findings, const std::vector<bool>& known = {});

} // namespace quillmark

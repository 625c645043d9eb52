#pragma once

#include "findings/SiteResults.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// One reference of a check with the web rules as a row of the results view. The views are valid as
/// long as the results.
struct SiteRow {
    std::string_view reference; ///< A full path, or as written where it leads to none.
    std::string_view path;  ///< The file that it leads to, whether it exists or not; may be empty.
    std::string_view from;  ///< The page that makes it, BaseFile for the start page.
    std::uint32_t line = 0; ///< Its line on that page, 1-based; 0 for the start page.
    std::string why;        ///< What is wrong, or why it was not looked up; may be empty.
    bool note = false;      ///< What is wrong is only a note.
    std::string_view suggestion; ///< A reference to write instead; may be empty.
};

/// The rows of one display, in the order of the pages and their sources.
struct SiteRows {
    std::size_t (*count)(const SiteResults& results);
    SiteRow (*row)(const SiteResults& results, std::size_t index);
    /// The reference of a row alone, for loops over millions of rows.
    std::string_view (*reference)(const SiteResults& results, std::size_t index);
};

/// The start page, then every occurrence of a reference to a path of the site.
extern const SiteRows ReferenceRows;
/// The findings: errors and notes.
extern const SiteRows FindingRows;
/// The references that were not looked up.
extern const SiteRows IgnoredRows;

} // namespace quillmark

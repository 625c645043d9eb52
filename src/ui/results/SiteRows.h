#pragma once

#include "findings/SiteResults.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// One reference of a check with the web rules as a row of the results view. The texts live as long
/// as the results.
struct SiteRow {
    std::string_view reference; ///< A full path, or as written where it leads to none.
    std::string_view path;  ///< The file that it leads to, there or not; empty where there is none.
    std::string_view from;  ///< The page that makes it, "(base file)" for the start page.
    std::uint32_t line = 0; ///< Its line on that page, 1-based; 0 for the start page.
    std::string why;        ///< What is wrong, or why it was not looked up; may be empty.
    bool note = false;      ///< What is wrong is no error.
    std::string_view suggestion; ///< A reference to write instead; may be empty.
};

/// The rows of one display, in the order of the pages and their sources.
struct SiteRows {
    std::size_t (*count)(const SiteResults& results);
    SiteRow (*row)(const SiteResults& results, std::size_t index);
    /// The reference of a row alone, for loops over millions of rows.
    std::string_view (*reference)(const SiteResults& results, std::size_t index);
};

/// What a row says of the start page's own page.
inline constexpr std::string_view BaseFile = "(base file)";

/// The start page, then every occurrence of a reference to a path of the site.
extern const SiteRows ReferenceRows;
/// What is not as it should be: errors and notes.
extern const SiteRows FindingRows;
/// What was not looked up.
extern const SiteRows IgnoredRows;

} // namespace quillmark

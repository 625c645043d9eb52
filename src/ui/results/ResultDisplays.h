#pragma once

#include "run/RunState.h"
#include "store/ResultLists.h"
#include "ui/results/SiteRows.h"

#include <array>
#include <string_view>

namespace quillmark {

/// One entry of the display selector: what it shows, and how its caption is put together.
struct ResultDisplay {
    std::string_view entry;
    ResultList ResultLists::*source;
    ResultList ResultLists::*from; ///< The second column; null where there is one column.
    std::array<std::string_view, 2> headers;
    std::string_view title;  ///< The caption up to the number of rows.
    std::string_view unit;   ///< What the rows are, behind their number.
    double RunState::*total; ///< The bytes of all rows; null where sizes mean nothing.
    bool masked;             ///< Follows the category selector.
    bool sorted;             ///< Follows the sort selector.
    /// The rows that a check with the web rules shows instead, with a column for the line; null if
    /// it shows the list.
    const SiteRows* site = nullptr;
    bool reasons = false; ///< Such rows have a column for the reason, too.
};

/// The entries in their order. Users know both spellings of "Referenced in".
inline constexpr std::array<ResultDisplay, 7> ResultDisplays = {{
    {"Host Directory List",
     &ResultLists::DirectoryList,
     nullptr,
     {"Directories"},
     "Host Directory Listing (",
     " Entries",
     nullptr,
     false,
     true},
    {"Host File List",
     &ResultLists::FileList,
     nullptr,
     {"Files"},
     "Host File Listing (",
     " Files",
     &RunState::hostByteTotal,
     true,
     true},
    {"Host File References",
     &ResultLists::ReferenceList,
     &ResultLists::ReferenceListFrom,
     {"Reference", "Referenced In"},
     "Host References (",
     " Files",
     nullptr,
     true,
     true,
     &ReferenceRows},
    {"Unused Host Files",
     &ResultLists::UnusedList,
     nullptr,
     {"Unused Files"},
     "Unused Host Files (",
     " Files",
     &RunState::unusedByteTotal,
     true,
     true},
    {"Invalid References",
     &ResultLists::InvalidReferences,
     &ResultLists::InvalidReferencesFrom,
     {"Reference", "Referenced in"},
     "Invalid References (",
     " Files",
     nullptr,
     true,
     false,
     &FindingRows,
     true},
    {"Ignored References",
     &ResultLists::IgnoredReferences,
     &ResultLists::IgnoredReferencesFrom,
     {"Reference", "Referenced in"},
     "Ignored References (",
     " Files",
     nullptr,
     true,
     false,
     &IgnoredRows,
     true},
    {"Duplicate Files",
     &ResultLists::DuplicateList,
     nullptr,
     {"Duplicate Files"},
     "Duplicate File Listing (",
     " Entries",
     nullptr,
     true,
     false},
}};

/// What the sort selector offers, index for index with SortOrder.
inline constexpr std::array<std::string_view, 3> SortOrderNames = {"None", "Name", "Path"};

} // namespace quillmark

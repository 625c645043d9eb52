#pragma once

#include "findings/SiteResults.h"
#include "store/ResultLists.h"

#include <string_view>

namespace quillmark {

/// Turns the lists of a check with the classic rules into the results that formats read. Each
/// invalid reference is an error of the kind Missing; lines, columns and elements are not known
/// (line 0). `start` is the start page in "/" form, whose folder is the top; `ignoreCase` says how
/// the check compared names. The texts are views into the lists. The references themselves are left
/// out, since no format lists them.
SiteResults resultsOfLists(const ResultLists& lists, std::string_view start, bool ignoreCase);

} // namespace quillmark

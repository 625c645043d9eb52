#pragma once

#include "findings/SiteResults.h"
#include "store/ResultLists.h"

namespace quillmark {

/// Fills the result lists from the results of a check with the web rules, so that all that shows or
/// writes lists works for it too. There is no list maximum, every occurrence of a reference is a
/// line, and Message is left alone. The lines are views into the results, which must outlive them.
void projectLists(const SiteResults& results, ResultLists& lists);

} // namespace quillmark

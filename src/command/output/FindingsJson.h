#pragma once

#include "findings/SiteResults.h"

#include <ostream>

namespace quillmark {

/// Writes the members of the JSON object that only a check with the web rules has, each followed by
/// a comma: "rules", "top", "totals", "findings", "ignored" and "duplicates". Bytes that are not
/// UTF-8 become U+FFFD.
void writeFindings(std::ostream& out, const SiteResults& results);

} // namespace quillmark

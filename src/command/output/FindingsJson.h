#pragma once

#include "findings/SiteResults.h"

#include <ostream>
#include <string>
#include <string_view>

namespace quillmark {

/// The bytes as a JSON string that steers no terminal: what is not UTF-8 is replaced.
std::string jsonText(std::string_view bytes);

/// Writes the members of the JSON object that only a check with the web rules has, each followed by
/// a comma: "rules", "top", "totals", "findings", "ignored" and "duplicates". Bytes that are not
/// UTF-8 become U+FFFD.
void writeFindings(std::ostream& out, const SiteResults& results);

} // namespace quillmark

#pragma once

#include "findings/SiteResults.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// The bytes as a JSON string (RFC 8259) that is safe on a terminal. What is not UTF-8 becomes
/// U+FFFD.
std::string jsonText(std::string_view bytes);

/// The same, but null for an empty text.
std::string jsonTextOrNull(std::string_view bytes);

/// A web server's status; null for 0, which stands for none.
std::string jsonStatus(std::uint16_t status);

/// A web address that was asked, as a JSON object.
std::string jsonAddress(const AskedAddress& asked);

/// The totals as a JSON object over several lines, a member for each kind, indented to stand in the
/// outermost object.
std::string jsonTotals(const KindTotals& totals);

/// The bytes as they come back out of a JSON string: what is not UTF-8 has become U+FFFD.
std::string soundUtf8(std::string_view bytes);

} // namespace quillmark

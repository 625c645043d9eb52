#pragma once

#include <string_view>

namespace quillmark {

/// The page without its results, as the build puts it together: what comes before the JSON object
/// that holds them, and what comes after it.
extern const std::string_view PageBeginning;
extern const std::string_view PageEnd;

} // namespace quillmark

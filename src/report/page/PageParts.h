#pragma once

#include <string_view>

namespace quillmark {

/// The page without its results, as the build put it together: what stands before the JSON object
/// that holds them, and what stands after it.
extern const std::string_view PageBeginning;
extern const std::string_view PageEnd;

} // namespace quillmark

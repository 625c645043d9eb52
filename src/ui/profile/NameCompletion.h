#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The 0-based index of the first name that is longer than the typed text and begins with it, in
/// any letter case. nullopt if there is none, and for an empty text.
std::optional<std::size_t> completion(const std::vector<std::string>& names,
                                      std::string_view typedText);

} // namespace quillmark

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The index of the first name that begins with the typed text, in any case, and is longer. None
/// for an empty text.
std::optional<std::size_t> completion(const std::vector<std::string>& names,
                                      std::string_view typedText);

} // namespace quillmark

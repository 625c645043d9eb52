#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The place of the first name that begins with what was typed, without regard to case, and goes
/// on after it; none for an empty text.
std::optional<std::size_t> completion(const std::vector<std::string>& names,
                                      std::string_view typedText);

} // namespace quillmark

#pragma once

#include <cstdint>
#include <string_view>

namespace quillmark {

/// A hash of the bytes for tables in memory (XXH3, 64 bits).
std::uint64_t hashOf(std::string_view bytes);

} // namespace quillmark

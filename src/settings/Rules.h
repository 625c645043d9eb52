#pragma once

#include <optional>
#include <string_view>

namespace quillmark {

/// By which rules a check reads pages and judges references: Classic takes every line literally,
/// Web sees what a browser sees.
enum class Rules { Classic, Web };

/// As settings files and command lines spell it: "classic", "web".
std::string_view nameOf(Rules rules);

/// The rules of that name; nullopt for any other text.
std::optional<Rules> rulesNamed(std::string_view name);

} // namespace quillmark

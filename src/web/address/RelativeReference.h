#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// The reference to write for a file, from a page (or its base) to it, both from the top of the
/// site on: "../images/a%20b.png".
std::string relativeReference(std::string_view page, std::string_view target);

} // namespace quillmark::web

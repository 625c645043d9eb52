#pragma once

#include <string>
#include <string_view>

namespace quillmark::web {

/// The reference to write in a page for a file: "../images/a%20b.png". Both paths are decoded and
/// relative to the top of the site; `page` may be the base of a page.
std::string relativeReference(std::string_view page, std::string_view target);

} // namespace quillmark::web

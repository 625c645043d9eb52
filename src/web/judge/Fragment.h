#pragma once

#include <string_view>

namespace quillmark::web {

/// Whether browsers show something for a fragment that no element has as its id: nothing at all, or
/// "top" (WHATWG HTML, section 7.4.6.4).
bool isTopOfPage(std::string_view fragment);

/// Whether a fragment is an address that a script of the page understands: "/route", "!/route".
bool isRoute(std::string_view fragment);

} // namespace quillmark::web

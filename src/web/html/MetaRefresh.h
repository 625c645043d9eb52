#pragma once

#include <string_view>

namespace quillmark::web {

/// The address in the content of a meta refresh ("5; url='next.html'"), as a part of it; "" if it
/// names none (WHATWG HTML, 4.2.5.3).
std::string_view refreshAddress(std::string_view content);

} // namespace quillmark::web

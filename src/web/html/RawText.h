#pragma once

#include "web/page/Names.h"

#include <string_view>

namespace quillmark::web {

/// Whether the content of an HTML element is text up to its own end tag, not markup. noscript is
/// markup: readers without scripts and search engines follow it.
bool hasRawText(Element element);

/// The length of such content in bytes; `text` begins behind the start tag (WHATWG HTML, 13.2.5.2
/// to 13.2.5.31). Without an end tag it is the rest of the page.
std::size_t rawTextLength(std::string_view text, Element element);

} // namespace quillmark::web

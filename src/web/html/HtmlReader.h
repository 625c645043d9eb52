#pragma once

#include "web/page/References.h"

namespace quillmark::web {

/// What the markup of a page is.
enum class Markup {
    Html,
    Xhtml, ///< Elements may close themselves, and CDATA sections may be anywhere.
    Svg    ///< A file of its own.
};

/// Reads the references and ids of a page.
void readMarkup(const Source& source, Markup markup, PageContent& content);

/// The label of the encoding that a page declares in its first 1,024 bytes, in a meta element or in
/// an XML declaration; "" for none (WHATWG HTML, 13.2.3.2).
std::string_view declaredCharset(std::string_view bytes);

} // namespace quillmark::web

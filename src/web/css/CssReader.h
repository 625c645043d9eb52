#pragma once

#include "web/page/References.h"

namespace quillmark::web {

/// What holds the CSS. The place of an address is named by how it is given ("url()") in a sheet or
/// a style element, and by the attribute in an attribute.
struct CssPlace {
    Element element = Element::Other;
    Attribute attribute = Attribute::Other; ///< Other: no attribute.
};

/// Files the addresses in CSS with that role. What @import names is a Sheet, unless the role is
/// UseOnly.
void readCss(const Value& css, CssPlace place, Role role, References& references);

} // namespace quillmark::web

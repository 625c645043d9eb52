#pragma once

#include "web/page/References.h"

namespace quillmark::web {

/// Where CSS stands: in a sheet or an element named style an address is placed by how it is given
/// ("url()"), in an attribute by that.
struct CssPlace {
    Element element = Element::Other;
    Attribute attribute = Attribute::Other; ///< Other: no attribute.
};

/// Files the addresses in CSS; UseOnly makes all of them such.
void readCss(const Value& css, CssPlace place, Role role, References& references);

} // namespace quillmark::web

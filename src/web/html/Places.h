#pragma once

#include "web/page/Names.h"

#include <cstdint>

namespace quillmark::web {

/// What the value of an attribute is to a reader.
enum class Meaning : std::uint8_t {
    None,
    Link,    ///< One address.
    Form,    ///< The address that a form is sent to.
    UseMap,  ///< "#name" of a map.
    SvgUse,  ///< The address of another element of SVG.
    Srcset,  ///< Several addresses with descriptors.
    Css,     ///< Declarations or a value of CSS.
    Base,    ///< The address that others are relative to.
    Rel,     ///< One address, whose role is in the attribute rel.
    Content, ///< Whatever the other attributes of a meta element say.
    Id,      ///< A name for fragments.
    MapName  ///< A name for usemap.
};

/// The meaning of an attribute of an HTML element.
Meaning htmlMeaning(Element element, Attribute attribute);

/// The meaning of an attribute of an SVG or MathML element.
Meaning svgMeaning(Element element, Attribute attribute);

} // namespace quillmark::web

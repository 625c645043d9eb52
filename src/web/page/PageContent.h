#pragma once

#include "web/text/TextArena.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// A place in a page's source, as editors count it: both 1-based, the column in characters, a tab
/// as one. CR, LF and CR LF end a line; a byte order mark is no character.
struct Position {
    std::uint32_t line = 1;
    std::uint32_t column = 1;

    bool operator==(const Position&) const = default;
};

/// What a reference is for, as far as it decides what becomes of it.
enum class Role : std::uint8_t {
    Link,     ///< Any ordinary reference.
    Form,     ///< The action of a form or of one of its buttons: it may name a program.
    Sheet,    ///< A style sheet: its file is read as CSS.
    Manifest, ///< A web app manifest: its file is read as one.
    Feed,     ///< An ordinary reference whose file is read as a sitemap or feed.
    SvgUse,   ///< From an element of SVG to another one: its fragment is judged in .svg files, too.
    UseMap,   ///< "#name": a map or an id of its own page, whatever the base is.
    UseOnly   ///< Counts as use of a file and is never an error.
};

/// One reference of a page.
struct PageReference {
    std::string_view text;   ///< The address as UTF-8 with character references and CSS escapes
                             ///< decoded; blanks around and inside it are still there.
    Position at;             ///< The first character of the value, or of the address in a value
                             ///< that holds more (srcset, style, meta refresh).
    std::uint16_t place = 0; ///< The element and attribute: see placeName().
    Role role = Role::Link;
};

/// What a page refers to and what can be referred to in it. The texts are views into the bytes that
/// were read or into what the content owns.
struct PageContent {
    std::vector<PageReference> references; ///< In source order.
    std::vector<std::string_view> ids; ///< Decoded ids and names of anchors; repeated ones, too.
    std::vector<std::string_view> mapNames;
    std::optional<std::string_view> base; ///< The first base href; an empty one names the page.

    TextArena texts;     ///< Decoded texts.
    std::string decoded; ///< The page as UTF-8, if its bytes are something else.

    /// Empties the content and keeps its memory for the next page.
    void clear();
};

/// How the bytes of a file are read. Xhtml is for files that a server calls XHTML (.xhtml): their
/// elements may close themselves ("<script/>").
enum class PageKind : std::uint8_t { Html, Xhtml, Svg, Sheet, Manifest, Feed };

/// Reads one file into `content`, which is cleared first. `bytes` must outlive the content. Any
/// bytes are accepted; time and memory are linear in their number.
void readPage(std::string_view bytes, PageKind kind, PageContent& content);

/// Where a reference stands: <element attribute="...">. In CSS the attribute is "url()", "src()",
/// "image-set()" or "@import", and the element "style" or, in a sheet, "".
struct PlaceName {
    std::string_view element;
    std::string_view attribute;
};

/// The names of PageReference::place.
PlaceName placeName(std::uint16_t place);

} // namespace quillmark::web

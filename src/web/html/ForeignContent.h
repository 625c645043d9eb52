#pragma once

#include "web/html/Tag.h"

#include <vector>

namespace quillmark::web {

/// Follows which part of a page is SVG or MathML, where other elements and CDATA sections exist
/// and no element has raw text, and which is in a template (WHATWG HTML, 13.2.6.5). Only the
/// elements that decide this are remembered, not the whole tree.
class ForeignContent {
public:
    /// Takes a start tag; to be asked first whether the tag itself is foreign.
    bool start(const Tag& tag);
    void end(const Tag& tag);

    /// Whether the next start tag would be one of SVG or MathML, unless it cannot be.
    bool foreign() const { return !open_.empty() && open_.back().foreign; }
    /// Whether an end tag could change anything.
    bool anyOpen() const { return !open_.empty(); }
    bool inTemplate() const { return templates_ > 0; }

private:
    struct Open {
        Element element;
        bool foreign; ///< Its children are foreign: it is no way back to HTML.
    };

    bool startForeign(const Tag& tag);
    void push(Element element, bool foreign);
    void popToHtml();
    void popTo(Element element);

    std::vector<Open> open_;
    unsigned templates_ = 0;
};

} // namespace quillmark::web

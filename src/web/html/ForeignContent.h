#pragma once

#include "web/html/Tag.h"

#include <vector>

namespace quillmark::web {

/// Follows which parts of a page are SVG or MathML, and which are in a template (WHATWG HTML,
/// 13.2.6.5). In SVG and MathML there are other elements and CDATA sections, and no raw text. Only
/// the elements that decide this are remembered, not the whole tree.
class ForeignContent {
public:
    /// Takes a start tag. Returns whether its element is one of SVG or MathML.
    bool start(const Tag& tag);
    /// Takes an end tag.
    void end(const Tag& tag);

    /// Whether the next element is one of SVG or MathML, unless its tag is one that ends them.
    bool foreign() const { return !open_.empty() && open_.back().foreign; }
    /// Whether an end tag could change anything.
    bool anyOpen() const { return !open_.empty(); }
    bool inTemplate() const { return templates_ > 0; }

private:
    struct Open {
        Element element;
        bool foreign; ///< Its children are foreign; false if its content is HTML.
    };

    bool startForeign(const Tag& tag);
    void push(Element element, bool foreign);
    void popToHtml();
    void popTo(Element element);

    std::vector<Open> open_;
    unsigned templates_ = 0;
};

} // namespace quillmark::web

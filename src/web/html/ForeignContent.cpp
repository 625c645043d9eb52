#include "web/html/ForeignContent.h"

#include "web/text/Ascii.h"

#include <algorithm>

namespace quillmark::web {

namespace {

/// As deep as browsers nest elements; deeper ones are not followed.
constexpr std::size_t DeepestNesting = 512;

/// Start tags that end SVG and MathML: nobody can have meant them to be in there.
bool breaksOut(const Tag& tag) {
    switch (tag.element) {
    case Element::B:
    case Element::Big:
    case Element::Blockquote:
    case Element::Body:
    case Element::Br:
    case Element::Center:
    case Element::Code:
    case Element::Dd:
    case Element::Div:
    case Element::Dl:
    case Element::Dt:
    case Element::Em:
    case Element::Embed:
    case Element::H1:
    case Element::H2:
    case Element::H3:
    case Element::H4:
    case Element::H5:
    case Element::H6:
    case Element::Head:
    case Element::Hr:
    case Element::I:
    case Element::Img:
    case Element::Li:
    case Element::Menu:
    case Element::Meta:
    case Element::Nobr:
    case Element::Ol:
    case Element::P:
    case Element::Pre:
    case Element::Ruby:
    case Element::S:
    case Element::Small:
    case Element::Span:
    case Element::Strong:
    case Element::Strike:
    case Element::Sub:
    case Element::Sup:
    case Element::Table:
    case Element::Tt:
    case Element::U:
    case Element::Ul:
    case Element::Var:
        return true;
    case Element::Font:
        return tag.has(Attribute::Color) || tag.has(Attribute::Face) || tag.has(Attribute::Size);
    default:
        return false;
    }
}

/// End tags of elements around SVG and MathML, which these cannot outlive.
bool closesAround(const Tag& tag) {
    switch (tag.element) {
    case Element::Article:
    case Element::Aside:
    case Element::Button:
    case Element::Figure:
    case Element::Footer:
    case Element::Form:
    case Element::Header:
    case Element::Html:
    case Element::Label:
    case Element::Main:
    case Element::Nav:
    case Element::Section:
    case Element::Summary:
    case Element::Td:
    case Element::Th:
    case Element::Tr:
        return true;
    default:
        return tag.element != Element::Font && breaksOut(tag);
    }
}

/// Elements of SVG whose content is HTML.
bool svgHoldsHtml(Element element) {
    return element == Element::Desc || element == Element::ForeignObject ||
           element == Element::Title;
}

/// Elements of MathML whose content is HTML.
bool mathHoldsHtml(const Tag& tag) {
    switch (tag.element) {
    case Element::Mi:
    case Element::Mn:
    case Element::Mo:
    case Element::Ms:
    case Element::Mtext:
        return true;
    case Element::AnnotationXml: {
        const std::string_view encoding = tag.raw(Attribute::Encoding);
        return equalIgnoringCase(encoding, "text/html") ||
               equalIgnoringCase(encoding, "application/xhtml+xml");
    }
    default:
        return false;
    }
}

} // namespace

bool ForeignContent::start(const Tag& tag) {
    if (foreign()) {
        if (!breaksOut(tag)) {
            return startForeign(tag);
        }
        popToHtml();
    }
    if (tag.element == Element::Svg || tag.element == Element::Math) {
        return startForeign(tag);
    }
    if (tag.element == Element::Template) {
        push(Element::Template, false);
    }
    return false;
}

bool ForeignContent::startForeign(const Tag& tag) {
    const bool root = tag.element == Element::Svg || tag.element == Element::Math;
    const bool inMath = foreign() && open_.back().element == Element::Math;
    const bool holdsHtml = inMath ? mathHoldsHtml(tag) : svgHoldsHtml(tag.element);
    if (!tag.selfClosing && (root || holdsHtml)) {
        push(tag.element, root);
    }
    return true;
}

void ForeignContent::end(const Tag& tag) {
    if (open_.empty()) {
        return;
    }
    if (foreign() && closesAround(tag)) {
        popToHtml();
        return;
    }
    popTo(tag.element);
}

void ForeignContent::push(Element element, bool foreign) {
    if (open_.size() < DeepestNesting) {
        open_.push_back({element, foreign});
        templates_ += element == Element::Template ? 1 : 0;
    }
}

void ForeignContent::popToHtml() {
    while (foreign()) {
        open_.pop_back();
    }
}

/// Closes the innermost open element of that name, but none around a template.
void ForeignContent::popTo(Element element) {
    auto found = open_.end();
    for (auto at = open_.end(); at != open_.begin() && found == open_.end();) {
        --at;
        if (at->element == element) {
            found = at;
        } else if (at->element == Element::Template) {
            return;
        }
    }
    if (found == open_.end()) {
        return;
    }
    templates_ -= element == Element::Template ? 1 : 0;
    open_.erase(found, open_.end());
}

} // namespace quillmark::web

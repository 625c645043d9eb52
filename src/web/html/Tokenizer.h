#pragma once

#include "web/html/Tag.h"

#include <string_view>

namespace quillmark::web {

/// The rules by which tags are found.
enum class Syntax { Html, Xml };

/// Goes through markup from tag to tag (WHATWG HTML, 13.2.5), past text, comments, declarations,
/// processing instructions and CDATA sections. PHP code is passed over, too.
class Tokenizer {
public:
    Tokenizer(std::string_view source, Syntax syntax)
        : at_(source.data()), end_(source.data() + source.size()), syntax_(syntax),
          cdata_(syntax == Syntax::Xml) {}

    /// Moves on to the next tag; false at the end. A tag without its ">" does not count.
    bool next();
    const Tag& tag() const { return tag_; }

    /// Tells whether "<![CDATA[" begins a section, as it does in SVG and MathML.
    void allowCdata(bool allowed) { cdata_ = allowed || syntax_ == Syntax::Xml; }
    /// Tells whether next() stops at end tags, too, as it does at first.
    void reportEndTags(bool reported) { endTags_ = reported; }
    /// Passes over the raw text between the start tag of an element and its end tag, and returns
    /// it. The end tag is the next tag. Returns "" for an element whose content is markup.
    std::string_view skipRawText(Element element);

private:
    bool readTag(const char* name);
    bool readAttributes(const char* p);
    void skipEndTag(const char* name);
    const char* readAttribute(const char* p);
    const char* afterMarkup(const char* p);
    const char* afterDeclaration(const char* p) const;
    const char* afterInstruction(const char* p);

    const char* at_;
    const char* end_;
    Syntax syntax_;
    bool cdata_;
    bool endTags_ = true;
    bool phpEnds_ = true; ///< There may be another "?>" ahead: no second search without one.
    Tag tag_;
};

} // namespace quillmark::web

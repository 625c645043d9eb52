#include "web/html/HtmlReader.h"

#include "web/css/CssReader.h"
#include "web/html/ForeignContent.h"
#include "web/html/LinkRole.h"
#include "web/html/MetaRefresh.h"
#include "web/html/Places.h"
#include "web/html/Srcset.h"
#include "web/html/TextPieces.h"
#include "web/html/Tokenizer.h"
#include "web/text/Ascii.h"
#include "web/text/Decoding.h"

namespace quillmark::web {

namespace {

class HtmlReader {
public:
    HtmlReader(const Source& source, Markup markup, PageContent& content)
        : tokenizer_(source.text, markup == Markup::Html ? Syntax::Html : Syntax::Xml),
          references_(source, content), content_(content), markup_(markup) {}

    void read();

private:
    void readStart();
    void followForeign();
    void readAttribute(const TagAttribute& attribute, Meaning meaning);
    void readSrcset(const TagAttribute& attribute);
    void readContent(const TagAttribute& attribute);
    void readRel(const TagAttribute& attribute);
    void readStyle(std::string_view css);
    void readForeignStyle(const char* from, const char* to);

    Meaning meaningOf(Attribute attribute) const;
    Role role(Role role) const { return foreign_.inTemplate() ? Role::UseOnly : role; }
    void add(const TagAttribute& attribute, Role role);
    std::string_view decoded(Attribute name) {
        return references_.decode(tokenizer_.tag().raw(name)).text;
    }

    Tokenizer tokenizer_;
    References references_;
    PageContent& content_;
    Markup markup_;
    ForeignContent foreign_;
    bool svg_ = false;                   ///< The tag is one of SVG or MathML.
    const char* foreignStyle_ = nullptr; ///< The content of an open style element of SVG.
};

void HtmlReader::read() {
    while (tokenizer_.next()) {
        const Tag& tag = tokenizer_.tag();
        if (foreignStyle_ != nullptr) {
            readForeignStyle(foreignStyle_, tag.start);
            foreignStyle_ = nullptr;
        }
        if (!tag.isEnd) {
            readStart();
        } else {
            foreign_.end(tag);
            followForeign();
        }
    }
}

void HtmlReader::readStart() {
    const Tag& tag = tokenizer_.tag();
    svg_ = markup_ == Markup::Svg || foreign_.start(tag);
    for (const TagAttribute& attribute : tag.attributes()) {
        readAttribute(attribute, meaningOf(attribute.name));
    }
    followForeign();
    if (svg_) {
        foreignStyle_ = tag.element == Element::Style ? tag.behind : nullptr;
    } else if (markup_ == Markup::Html || !tag.selfClosing) {
        const std::string_view raw = tokenizer_.skipRawText(tag.element);
        if (tag.element == Element::Style) {
            readStyle(raw);
        }
    }
}

/// Tells the tokenizer what the open elements mean for the markup that follows. Where nothing
/// depends on end tags it passes over them.
void HtmlReader::followForeign() {
    tokenizer_.allowCdata(foreign_.foreign());
    tokenizer_.reportEndTags(foreign_.anyOpen() || markup_ == Markup::Svg);
}

Meaning HtmlReader::meaningOf(Attribute attribute) const {
    const Element element = tokenizer_.tag().element;
    if (!svg_) {
        return htmlMeaning(element, attribute);
    }
    // Browsers use href if an element has both.
    if (attribute == Attribute::XlinkHref && tokenizer_.tag().has(Attribute::Href)) {
        return Meaning::None;
    }
    const Meaning meaning = svgMeaning(element, attribute);
    // An SVG file may hold elements of HTML; their names alone tell them.
    return meaning == Meaning::None && markup_ == Markup::Svg ? htmlMeaning(element, attribute)
                                                              : meaning;
}

void HtmlReader::readAttribute(const TagAttribute& attribute, Meaning meaning) {
    switch (meaning) {
    case Meaning::None:
        break;
    case Meaning::Link:
        add(attribute, Role::Link);
        break;
    case Meaning::Form:
        add(attribute, Role::Form);
        break;
    case Meaning::UseMap:
        add(attribute, Role::UseMap);
        break;
    case Meaning::SvgUse:
        add(attribute, Role::SvgUse);
        break;
    case Meaning::Srcset:
        readSrcset(attribute);
        break;
    case Meaning::Css:
        readCss(references_.decode(attribute.raw), {tokenizer_.tag().element, attribute.name},
                role(Role::Link), references_);
        break;
    case Meaning::Base:
        if (!content_.base && !foreign_.inTemplate()) {
            content_.base = references_.decode(attribute.raw).text;
        }
        break;
    case Meaning::Rel:
        readRel(attribute);
        break;
    case Meaning::Content:
        readContent(attribute);
        break;
    case Meaning::Id:
        if (!attribute.raw.empty() && !foreign_.inTemplate()) {
            content_.ids.push_back(references_.decode(attribute.raw).text);
        }
        break;
    case Meaning::MapName:
        if (!attribute.raw.empty() && !foreign_.inTemplate()) {
            content_.mapNames.push_back(references_.decode(attribute.raw).text);
        }
        break;
    }
}

void HtmlReader::add(const TagAttribute& attribute, Role asked) {
    references_.add(references_.decode(attribute.raw).text, attribute.raw.data(),
                    placeOf(tokenizer_.tag().element, attribute.name), role(asked));
}

void HtmlReader::readSrcset(const TagAttribute& attribute) {
    const Value value = references_.decode(attribute.raw);
    ValueSource source(value);
    for (Srcset srcset(value.text); srcset.next();) {
        references_.add(srcset.address(), source.at(srcset.offset()),
                        placeOf(tokenizer_.tag().element, attribute.name), role(Role::Link));
    }
}

void HtmlReader::readRel(const TagAttribute& attribute) {
    if (const auto asked = linkRole(decoded(Attribute::Rel), decoded(Attribute::Type))) {
        add(attribute, *asked);
    }
}

void HtmlReader::readContent(const TagAttribute& attribute) {
    const Tag& tag = tokenizer_.tag();
    if (equalIgnoringCase(decoded(Attribute::HttpEquiv), "refresh")) {
        const Value value = references_.decode(attribute.raw);
        const std::string_view address = refreshAddress(value.text);
        if (!address.empty()) {
            ValueSource source(value);
            references_.add(address,
                            source.at(static_cast<std::size_t>(address.data() - value.text.data())),
                            placeOf(tag.element, attribute.name), role(Role::Link));
        }
    } else if (namesFile(decoded(Attribute::Property)) || namesFile(decoded(Attribute::Name)) ||
               namesFile(decoded(Attribute::ItemProp))) {
        add(attribute, Role::UseOnly);
    }
}

/// Reads the content of a style element of HTML, unless its type says that it is not CSS.
void HtmlReader::readStyle(std::string_view css) {
    const std::string_view type = decoded(Attribute::Type);
    if (type.empty() || equalIgnoringCase(type, "text/css")) {
        readCss({css, css}, {Element::Style}, role(Role::Link), references_);
    }
}

/// In SVG, CSS is ordinary text: with character references, comments and CDATA sections.
void HtmlReader::readForeignStyle(const char* from, const char* to) {
    for (TextPieces pieces({from, static_cast<std::size_t>(to - from)}); pieces.next();) {
        const Value css = pieces.inCdata() ? Value{pieces.piece(), pieces.piece()}
                                           : references_.decode(pieces.piece(), ReferenceIn::Text);
        readCss(css, {Element::Style}, role(Role::Link), references_);
    }
}

/// The charset in the content of a meta element ("text/html; charset=utf-8").
std::string_view charsetIn(std::string_view content) {
    constexpr std::string_view Word = "charset";
    while (content.size() > Word.size()) {
        if (!startsIgnoringCase(content, Word)) {
            content.remove_prefix(1);
            continue;
        }
        content = withoutOuterBlanks(content.substr(Word.size()));
        if (!content.starts_with("=")) {
            continue;
        }
        content = withoutOuterBlanks(content.substr(1));
        const bool quoted = content.starts_with("\"") || content.starts_with("'");
        const std::string_view rest = content.substr(quoted ? 1 : 0);
        return quoted ? rest.substr(0, rest.find(content[0]))
                      : rest.substr(0, rest.find_first_of("; \t\r\n\f"));
    }
    return {};
}

} // namespace

void readMarkup(const Source& source, Markup markup, PageContent& content) {
    HtmlReader(source, markup, content).read();
}

std::string_view declaredCharset(std::string_view bytes) {
    Tokenizer tokenizer(bytes.substr(0, 1024), Syntax::Html);
    while (tokenizer.next()) {
        const Tag& tag = tokenizer.tag();
        if (tag.isEnd || tag.element != Element::Meta) {
            continue;
        }
        std::string_view label = tag.raw(Attribute::Charset);
        if (equalIgnoringCase(tag.raw(Attribute::HttpEquiv), "content-type")) {
            label = label.empty() ? charsetIn(tag.raw(Attribute::Content)) : label;
        }
        if (!label.empty()) {
            return label;
        }
    }
    return xmlEncoding(bytes);
}

} // namespace quillmark::web

#include "web/data/FeedReader.h"

#include "web/html/TextPieces.h"
#include "web/html/Tokenizer.h"
#include "web/text/Ascii.h"

namespace quillmark::web {

namespace {

/// Files the address that is the content of an element: its first piece that is more than blanks.
void readContent(std::string_view text, Element element, References& references) {
    for (TextPieces pieces(text); pieces.next();) {
        const std::string_view written = withoutOuterBlanks(pieces.piece());
        if (!written.empty()) {
            const std::string_view address =
                pieces.inCdata() ? written : references.decode(written, ReferenceIn::Text).text;
            references.add(address, written.data(), placeOf(element, Attribute::Other),
                           Role::UseOnly);
            return;
        }
    }
}

} // namespace

void readFeed(const Source& source, PageContent& content) {
    References references(source, content);
    Tokenizer tokenizer(source.text, Syntax::Xml);
    const char* contentStart = nullptr; // Of an open loc, link or url element.
    while (tokenizer.next()) {
        const Tag& tag = tokenizer.tag();
        if (contentStart != nullptr) {
            readContent({contentStart, static_cast<std::size_t>(tag.start - contentStart)},
                        tag.element, references);
            contentStart = nullptr;
        }
        if (tag.isEnd) {
            continue;
        }
        for (const TagAttribute& attribute : tag.attributes()) {
            if (attribute.name == Attribute::Href || attribute.name == Attribute::Url) {
                references.add(references.decode(attribute.raw).text, attribute.raw.data(),
                               placeOf(tag.element, attribute.name), Role::UseOnly);
            }
        }
        if (tag.element == Element::Loc || tag.element == Element::Link ||
            tag.element == Element::Url) {
            contentStart = tag.selfClosing ? nullptr : tag.behind;
        }
    }
}

} // namespace quillmark::web

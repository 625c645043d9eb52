#include "web/css/CssReader.h"
#include "web/data/FeedReader.h"
#include "web/data/ManifestReader.h"
#include "web/html/HtmlReader.h"
#include "web/page/PageContent.h"
#include "web/text/Decoding.h"

namespace quillmark::web {

namespace {

std::string_view noLabel(std::string_view /*bytes*/) {
    return {};
}

LabelFinder labelFinder(PageKind kind) {
    switch (kind) {
    case PageKind::Html:
    case PageKind::Xhtml:
        return declaredCharset;
    case PageKind::Svg:
    case PageKind::Feed:
        return xmlEncoding;
    case PageKind::Sheet:
        return cssCharset;
    case PageKind::Manifest:
        break;
    }
    return noLabel;
}

void readSource(const Source& source, PageKind kind, PageContent& content) {
    switch (kind) {
    case PageKind::Html:
        readMarkup(source, Markup::Html, content);
        break;
    case PageKind::Xhtml:
        readMarkup(source, Markup::Xhtml, content);
        break;
    case PageKind::Svg:
        readMarkup(source, Markup::Svg, content);
        break;
    case PageKind::Sheet: {
        References references(source, content);
        readCss({source.text, source.text}, {}, Role::Link, references);
        break;
    }
    case PageKind::Manifest:
        readManifest(source, content);
        break;
    case PageKind::Feed:
        readFeed(source, content);
        break;
    }
}

} // namespace

void readPage(std::string_view bytes, PageKind kind, PageContent& content) {
    content.clear();
    if (bytes.empty()) {
        return; // An empty file may have no address, which the searches in memory do not accept.
    }
    readSource(decodeFile(bytes, labelFinder(kind), content.decoded), kind, content);
}

} // namespace quillmark::web

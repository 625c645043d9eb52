#include "web/html/Places.h"

#include <array>
#include <cstddef>

namespace quillmark::web {

namespace {

constexpr std::size_t Elements = 256;
constexpr std::size_t Attributes = 64;

/// A meaning for each attribute and element: one lookup, however many rows the tables below have.
using Meanings = std::array<std::array<Meaning, Elements>, Attributes>;

struct Row {
    Element element;
    Attribute attribute;
    Meaning meaning;
};

constexpr auto HtmlRows = std::to_array<Row>({
    {Element::A, Attribute::Href, Meaning::Link},
    {Element::A, Attribute::Name, Meaning::Id},
    {Element::Area, Attribute::Href, Meaning::Link},
    {Element::Audio, Attribute::Src, Meaning::Link},
    {Element::Base, Attribute::Href, Meaning::Base},
    {Element::Blockquote, Attribute::Cite, Meaning::Link},
    {Element::Body, Attribute::Background, Meaning::Link},
    {Element::Button, Attribute::FormAction, Meaning::Form},
    {Element::Del, Attribute::Cite, Meaning::Link},
    {Element::Embed, Attribute::Src, Meaning::Link},
    {Element::Form, Attribute::Action, Meaning::Form},
    {Element::Frame, Attribute::LongDesc, Meaning::Link},
    {Element::Frame, Attribute::Src, Meaning::Link},
    {Element::Html, Attribute::Manifest, Meaning::Link},
    {Element::Iframe, Attribute::LongDesc, Meaning::Link},
    {Element::Iframe, Attribute::Src, Meaning::Link},
    {Element::Image, Attribute::LongDesc, Meaning::Link}, // Browsers take image for img.
    {Element::Image, Attribute::Src, Meaning::Link},
    {Element::Image, Attribute::Srcset, Meaning::Srcset},
    {Element::Image, Attribute::UseMap, Meaning::UseMap},
    {Element::Img, Attribute::LongDesc, Meaning::Link},
    {Element::Img, Attribute::Src, Meaning::Link},
    {Element::Img, Attribute::Srcset, Meaning::Srcset},
    {Element::Img, Attribute::UseMap, Meaning::UseMap},
    {Element::Input, Attribute::FormAction, Meaning::Form},
    {Element::Input, Attribute::Src, Meaning::Link},
    {Element::Input, Attribute::UseMap, Meaning::UseMap},
    {Element::Ins, Attribute::Cite, Meaning::Link},
    {Element::Link, Attribute::Href, Meaning::Rel},
    {Element::Link, Attribute::ImageSrcset, Meaning::Srcset},
    {Element::Map, Attribute::Name, Meaning::MapName},
    {Element::Meta, Attribute::Content, Meaning::Content},
    {Element::Object, Attribute::Data, Meaning::Link},
    {Element::Object, Attribute::UseMap, Meaning::UseMap},
    {Element::Q, Attribute::Cite, Meaning::Link},
    {Element::Script, Attribute::Src, Meaning::Link},
    {Element::Source, Attribute::Src, Meaning::Link},
    {Element::Source, Attribute::Srcset, Meaning::Srcset},
    {Element::Table, Attribute::Background, Meaning::Link},
    {Element::Tbody, Attribute::Background, Meaning::Link},
    {Element::Td, Attribute::Background, Meaning::Link},
    {Element::Tfoot, Attribute::Background, Meaning::Link},
    {Element::Th, Attribute::Background, Meaning::Link},
    {Element::Thead, Attribute::Background, Meaning::Link},
    {Element::Tr, Attribute::Background, Meaning::Link},
    {Element::Track, Attribute::Src, Meaning::Link},
    {Element::Video, Attribute::Poster, Meaning::Link},
    {Element::Video, Attribute::Src, Meaning::Link},
});

/// Elements of SVG with an address in href or xlink:href.
constexpr auto SvgRows = std::to_array<Row>({
    {Element::A, Attribute::Href, Meaning::Link},
    {Element::Animate, Attribute::Href, Meaning::SvgUse},
    {Element::AnimateColor, Attribute::Href, Meaning::SvgUse},
    {Element::AnimateMotion, Attribute::Href, Meaning::SvgUse},
    {Element::AnimateTransform, Attribute::Href, Meaning::SvgUse},
    {Element::Cursor, Attribute::Href, Meaning::Link},
    {Element::FeImage, Attribute::Href, Meaning::Link},
    {Element::Filter, Attribute::Href, Meaning::SvgUse},
    {Element::FontFaceUri, Attribute::Href, Meaning::Link},
    {Element::Image, Attribute::Href, Meaning::Link},
    {Element::LinearGradient, Attribute::Href, Meaning::SvgUse},
    {Element::Mpath, Attribute::Href, Meaning::SvgUse},
    {Element::Pattern, Attribute::Href, Meaning::SvgUse},
    {Element::RadialGradient, Attribute::Href, Meaning::SvgUse},
    {Element::Script, Attribute::Href, Meaning::Link},
    {Element::Set, Attribute::Href, Meaning::SvgUse},
    {Element::TextPath, Attribute::Href, Meaning::SvgUse},
    {Element::Tref, Attribute::Href, Meaning::SvgUse},
    {Element::Use, Attribute::Href, Meaning::SvgUse},
});

/// Attributes of all elements of SVG that hold a value of CSS.
constexpr auto SvgCss = std::to_array<Attribute>(
    {Attribute::ClipPath, Attribute::Cursor, Attribute::Fill, Attribute::Filter, Attribute::Marker,
     Attribute::MarkerEnd, Attribute::MarkerMid, Attribute::MarkerStart, Attribute::Mask,
     Attribute::Stroke});

constexpr std::size_t index(Element element) {
    return static_cast<std::size_t>(element);
}

constexpr std::size_t index(Attribute attribute) {
    return static_cast<std::size_t>(attribute);
}

template <std::size_t Count> constexpr Meanings meanings(const std::array<Row, Count>& rows) {
    Meanings table{};
    table[index(Attribute::Id)].fill(Meaning::Id);
    table[index(Attribute::Style)].fill(Meaning::Css);
    for (const Row& row : rows) {
        table[index(row.attribute)][index(row.element)] = row.meaning;
    }
    return table;
}

constexpr Meanings svgMeanings() {
    Meanings table = meanings(SvgRows);
    table[index(Attribute::XlinkHref)] = table[index(Attribute::Href)];
    for (const Attribute attribute : SvgCss) {
        table[index(attribute)].fill(Meaning::Css);
    }
    return table;
}

constexpr Meanings HtmlMeanings = meanings(HtmlRows);
constexpr Meanings SvgMeanings = svgMeanings();

} // namespace

Meaning htmlMeaning(Element element, Attribute attribute) {
    return HtmlMeanings[index(attribute)][index(element)];
}

Meaning svgMeaning(Element element, Attribute attribute) {
    return SvgMeanings[index(attribute)][index(element)];
}

} // namespace quillmark::web

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// The names of elements and attributes that the readers know. A row is the enumerator and the name
// in lower case. Elements without a rule of their own are listed so that a finding in their style
// attribute can name them.
// clang-format off
#define QUILLMARK_WEB_ELEMENTS(X) \
    X(Other, "") \
    X(A, "a") X(Abbr, "abbr") X(Address, "address") X(Animate, "animate") \
    X(AnimateColor, "animatecolor") X(AnimateMotion, "animatemotion") \
    X(AnimateTransform, "animatetransform") X(AnnotationXml, "annotation-xml") X(Area, "area") \
    X(Article, "article") X(Aside, "aside") X(Audio, "audio") X(B, "b") X(Base, "base") \
    X(Bdi, "bdi") X(Bdo, "bdo") X(Big, "big") X(Blockquote, "blockquote") X(Body, "body") \
    X(Br, "br") X(Button, "button") X(Canvas, "canvas") X(Caption, "caption") \
    X(Center, "center") X(Circle, "circle") X(Cite, "cite") X(ClipPath, "clippath") \
    X(Code, "code") X(Col, "col") X(Colgroup, "colgroup") X(Cursor, "cursor") X(Data, "data") \
    X(Dd, "dd") X(Del, "del") X(Desc, "desc") X(Details, "details") X(Dfn, "dfn") \
    X(Dialog, "dialog") X(Dir, "dir") X(Div, "div") X(Dl, "dl") X(Dt, "dt") X(Em, "em") \
    X(Embed, "embed") X(Enclosure, "enclosure") X(FeImage, "feimage") X(Fieldset, "fieldset") \
    X(Figcaption, "figcaption") X(Figure, "figure") X(Filter, "filter") X(Font, "font") \
    X(FontFaceUri, "font-face-uri") X(Footer, "footer") X(ForeignObject, "foreignobject") \
    X(Form, "form") X(Frame, "frame") X(G, "g") X(H1, "h1") X(H2, "h2") X(H3, "h3") \
    X(H4, "h4") X(H5, "h5") X(H6, "h6") X(Head, "head") X(Header, "header") X(Hr, "hr") \
    X(Html, "html") X(I, "i") X(Icons, "icons") X(Iframe, "iframe") X(Image, "image") \
    X(Img, "img") X(Input, "input") X(Ins, "ins") X(Kbd, "kbd") X(Label, "label") \
    X(Legend, "legend") X(Li, "li") X(Line, "line") X(LinearGradient, "lineargradient") \
    X(Link, "link") X(Loc, "loc") X(Main, "main") X(Map, "map") X(Mark, "mark") \
    X(Mask, "mask") X(Marker, "marker") X(Math, "math") X(Menu, "menu") X(Meta, "meta") \
    X(Mi, "mi") X(Mn, "mn") X(Mo, "mo") X(Mpath, "mpath") X(Ms, "ms") X(Mtext, "mtext") \
    X(Nav, "nav") X(Nobr, "nobr") X(Noembed, "noembed") X(Noframes, "noframes") \
    X(Noscript, "noscript") X(Object, "object") X(Ol, "ol") X(Optgroup, "optgroup") \
    X(Option, "option") X(Output, "output") X(P, "p") X(Path, "path") X(Pattern, "pattern") \
    X(Picture, "picture") X(Plaintext, "plaintext") X(Polygon, "polygon") \
    X(Polyline, "polyline") X(Pre, "pre") X(Progress, "progress") X(Q, "q") \
    X(RadialGradient, "radialgradient") X(Rect, "rect") X(Ruby, "ruby") X(S, "s") \
    X(Samp, "samp") X(Screenshots, "screenshots") X(Script, "script") X(Section, "section") \
    X(Select, "select") X(Set, "set") X(Shortcuts, "shortcuts") X(Small, "small") \
    X(Source, "source") X(Span, "span") X(Strike, "strike") X(Strong, "strong") \
    X(Style, "style") X(Sub, "sub") X(Summary, "summary") X(Sup, "sup") X(Svg, "svg") \
    X(Table, "table") X(Tbody, "tbody") X(Td, "td") X(Template, "template") X(Text, "text") \
    X(TextPath, "textpath") X(Textarea, "textarea") X(Tfoot, "tfoot") X(Th, "th") \
    X(Thead, "thead") X(Time, "time") X(Title, "title") X(Tr, "tr") X(Track, "track") \
    X(Tref, "tref") X(Tspan, "tspan") X(Tt, "tt") X(U, "u") X(Ul, "ul") X(Url, "url") \
    X(Use, "use") X(Var, "var") X(Video, "video") X(View, "view") X(Wbr, "wbr") \
    X(Xmp, "xmp")

#define QUILLMARK_WEB_ATTRIBUTES(X) \
    X(Other, "") \
    X(Action, "action") X(Background, "background") X(Charset, "charset") X(Cite, "cite") \
    X(ClipPath, "clip-path") \
    X(Color, "color") X(Content, "content") X(Cursor, "cursor") X(Data, "data") \
    X(Encoding, "encoding") X(Face, "face") X(Fill, "fill") X(Filter, "filter") \
    X(FormAction, "formaction") X(Href, "href") X(HttpEquiv, "http-equiv") X(Id, "id") \
    X(ImageSrcset, "imagesrcset") X(ItemProp, "itemprop") X(LongDesc, "longdesc") \
    X(Manifest, "manifest") X(Marker, "marker") X(MarkerEnd, "marker-end") \
    X(MarkerMid, "marker-mid") X(MarkerStart, "marker-start") X(Mask, "mask") X(Name, "name") \
    X(Poster, "poster") X(Property, "property") X(Rel, "rel") X(Size, "size") X(Src, "src") \
    X(Srcset, "srcset") X(StartUrl, "start_url") X(Stroke, "stroke") X(Style, "style") \
    X(Type, "type") X(Url, "url") X(UseMap, "usemap") X(XlinkHref, "xlink:href") \
    X(CssUrl, "url()") X(CssSrc, "src()") X(CssImageSet, "image-set()") X(CssImport, "@import")
// clang-format on

namespace quillmark::web {

#define QUILLMARK_WEB_ENUMERATOR(NAME, TEXT) NAME,

/// The elements that the readers tell apart. Other stands for all others, and for no element.
enum class Element : std::uint8_t { QUILLMARK_WEB_ELEMENTS(QUILLMARK_WEB_ENUMERATOR) };

/// The attributes that the readers tell apart. Functions and rules of CSS count as attributes.
enum class Attribute : std::uint8_t { QUILLMARK_WEB_ATTRIBUTES(QUILLMARK_WEB_ENUMERATOR) };

#undef QUILLMARK_WEB_ENUMERATOR

/// The key of a name: its last eight characters. A tokenizer appends the characters of a name while
/// it looks for its end, so that a lookup need not go over the name again.
struct NameKey {
    std::uint64_t characters = 0;

    constexpr void append(unsigned char lower) { characters = characters << 8U | lower; }
};

/// The element of a name in any letter case; `key` is the key of that name.
Element findElement(std::string_view name, NameKey key);
Element findElement(std::string_view name);
/// The attribute of a name in any letter case; `key` is the key of that name.
Attribute findAttribute(std::string_view name, NameKey key);
Attribute findAttribute(std::string_view name);

/// An element and an attribute as one number; placeName() gives their names.
constexpr std::uint16_t placeOf(Element element, Attribute attribute) {
    return static_cast<std::uint16_t>(static_cast<unsigned>(element) << 8U |
                                      static_cast<unsigned>(attribute));
}

} // namespace quillmark::web

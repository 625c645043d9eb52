#include "core/web/read/Judge.h"
#include "web/css/CssScanner.h"
#include "web/page/PageContent.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark::web::test {
namespace {

TEST(Css, NamesItsAddresses) {
    // A style sheet, and "offset kind address" of each.
    const std::vector<std::pair<std::string, Lines>> rows = {
        {"", {}},
        {"a{b:url(x.png)}", {"8 url() x.png"}},
        {"url( \n x.png\t)url('a b')URL(\"c\"  )", {"7 url() x.png", "19 url() a b", "29 url() c"}},
        {"url(a", {"4 url() a"}},
        {"url('a", {"5 url() a"}},
        {"url()url('')url(#x)url('#y')", {}},
        {"url(a b)url(c'd)url(e(f)url(g", {"28 url() g"}},
        {"url('a\n')';url(c)", {"15 url() c"}},
        {"/* url(a) */url(b)/*url(c)", {"16 url() b"}},
        {"'url(a)' \"/*\" url(b)", {"18 url() b"}},
        {"url(/*a*/)", {"4 url() /*a*/"}},
        {"u\\72l(a)\\75 rl(b)curl(c)#url(d)9url(e)", {"6 url() a", "15 url() b"}},
        {"url(a\\)b)url('\\63 \\'d\\\ne')url(\\0)",
         {"4 url() a)b", "14 url() c'de", "30 url() \xEF\xBF\xBD"}},
        {"src('a')src(b)src(\"c\" d)", {"5 src() a", "19 src() c"}},
        {"@import 'a';@import url(b) print;@import url('c') supports(d:url(e));'f'",
         {"9 @import a", "24 @import b", "46 @import c", "65 url() e"}},
        {"@IMPORT\"a\"", {"8 @import a"}},
        {"@namespace p url(a);@namespace 'b';url(c)", {"39 url() c"}},
        {"@charset 'x';@font-face{src:url(a?#iefix) format('woff')}", {"32 url() a?#iefix"}},
        {"image-set('a' 1x, url(b) 2x type('image/x'))'c'", {"11 image-set() a", "22 url() b"}},
        {"-webkit-image-set('a' calc(1x),'b')", {"19 image-set() a", "32 image-set() b"}},
        {"<!-- url(a) --> filter:p.L(src='b')", {"9 url() a"}},
        {"url(data:image/png;base64,AA==)", {"4 url() data:image/png;base64,AA=="}},
        {"\\", {}},
        {"url(\\", {}},
        {"'\\", {}},
    };
    for (const auto& [css, expected] : rows) {
        TextArena texts;
        Lines found;
        for (CssScanner scanner(css, texts); scanner.next();) {
            found.push_back(
                std::to_string(scanner.offset()) + " " +
                std::string(placeName(placeOf(Element::Other, scanner.kind())).attribute) + " " +
                std::string(scanner.address()));
        }
        EXPECT_EQ(found, expected) << css;
    }
}

TEST(Manifest, NamesItsPicturesAndPages) {
    EXPECT_EQ(
        linesOf("{\"name\": \"src\", \"start_url\": \".\\/?a=\\\"\\u00e9\",\n"
                " \"icons\": [{\"src\": \"\xC3\xA9.png\", \"sizes\": \"1x1\"}, {\"x\": {\"src\": "
                "1}}],\n"
                " \"screenshots\": [{\"src\": \"s.png\"}], \"src\": \"no\",\n"
                " \"shortcuts\": [{\"url\": \"p\", \"icons\": [{\"src\": \"i.png\"}]}],\n"
                " \"other\": {\"icons\": [{\"src\": \"no\"}], \"start_url\": \"no\"}}",
                PageKind::Manifest),
        (Lines{"1:31  start_url ./?a=\"\xC3\xA9", "2:21 icons src \xC3\xA9.png",
               "3:27 screenshots src s.png", "4:25 shortcuts url p", "4:48 icons src i.png"}));
}

TEST(Manifest, IsReadUpToItsFault) {
    EXPECT_EQ(linesOf("{\"start_url\": \"a\", \"icons\": [{\"src\": \"b\"} {\"src\": \"c\"}",
                      PageKind::Manifest),
              (Lines{"1:16  start_url a", "1:39 icons src b"}));
    for (const std::string rubbish :
         {"", "x", "[", "\"a\"", "[\"a\"]", "{\"start_url\": \"a", "]}"}) {
        EXPECT_EQ(linesOf(rubbish, PageKind::Manifest), Lines{}) << rubbish;
    }
}

TEST(Feed, NamesItsPages) {
    EXPECT_EQ(linesOf("<?xml version='1.0'?><urlset><url>\n<loc> http://x/a?b&amp;c </loc>"
                      "<image:loc><![CDATA[d&e]]></image:loc></url></urlset>",
                      PageKind::Feed),
              (Lines{"2:7 loc  http://x/a?b&c", "2:52 loc  d&e"}));
    EXPECT_EQ(linesOf("<rss><channel><link>a</link><item><enclosure url='b.mp3'/><link/></item>"
                      "<image><url>c.png</url></image></channel></rss>",
                      PageKind::Feed),
              (Lines{"1:21 link  a", "1:51 enclosure url b.mp3", "1:85 url  c.png"}));
    EXPECT_EQ(
        linesOf("<feed><link href='a' rel='self'/>no<entry><link href='b'></link></entry></feed>",
                PageKind::Feed),
        (Lines{"1:19 link href a", "1:55 link href b"}));
}

} // namespace
} // namespace quillmark::web::test

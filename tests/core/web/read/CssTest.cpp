#include "web/css/CssScanner.h"
#include "web/page/PageContent.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark::web::test {
namespace {

struct Row {
    std::string css;
    std::vector<std::string> found; ///< "offset kind address"
};

TEST(Css, NamesItsAddresses) {
    const std::vector<Row> rows = {
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
    for (const Row& row : rows) {
        TextArena texts;
        std::vector<std::string> found;
        for (CssScanner scanner(row.css, texts); scanner.next();) {
            found.push_back(
                std::to_string(scanner.offset()) + " " +
                std::string(placeName(placeOf(Element::Other, scanner.kind())).attribute) + " " +
                std::string(scanner.address()));
        }
        EXPECT_EQ(found, row.found) << row.css;
    }
}

} // namespace
} // namespace quillmark::web::test

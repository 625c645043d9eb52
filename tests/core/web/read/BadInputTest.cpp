#include "web/page/PageContent.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace quillmark::web::test {
namespace {

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

struct Row {
    const char* name;
    std::function<std::string()> page;
    std::size_t references;
    std::size_t ids;
};

// Reading that takes more than linear time never ends here: each page is very many of something.
TEST(BadInput, TakesLinearTime) {
    constexpr std::size_t Many = 20000;
    const std::vector<Row> rows = {
        {"one long line", [] { return repeated("<a href=x>y", Many); }, Many, 0},
        {"less-than signs", [] { return repeated("<", Many); }, 0, 0},
        {"a long attribute", [] { return "<a href='" + repeated("a&amp;\r", Many) + "'>"; }, 1, 0},
        {"attributes", [] { return "<a " + repeated("href=x id=y ", Many) + ">"; }, 1, 1},
        {"srcset", [] { return "<img srcset='" + repeated("a&amp; 1x, ", Many) + "'>"; }, Many, 0},
        {"addresses in a style attribute",
         [] { return "<p style='" + repeated("url(a)&lt;", Many) + "'>"; }, Many, 0},
        {"open comments", [] { return repeated("<!--", Many); }, 0, 0},
        {"dashes", [] { return "<!--" + repeated("-", Many); }, 0, 0},
        {"open PHP", [] { return repeated("<? <?x", Many); }, 0, 0},
        {"open PHP in XML", [] { return "<?xml " + repeated("<?xml>", Many); }, 0, 0},
        {"open CDATA in SVG", [] { return "<svg>" + repeated("<![CDATA[", Many); }, 0, 0},
        {"open titles", [] { return repeated("<title></titl", Many); }, 0, 0},
        {"open scripts", [] { return "<script>" + repeated("<!--<script", Many); }, 0, 0},
        {"deep SVG", [] { return repeated("<svg><desc>", Many) + repeated("</math>", Many); }, 0,
         0},
        {"deep templates", [] { return repeated("<template><a href=x id=i>", Many); }, Many, 0},
        {"ids", [] { return repeated("<p id=a&amp;>\n", Many); }, 0, Many},
        {"CSS",
         [] {
             return "<style>" + repeated("/*", Many) + "</style><style>" + repeated("url(a", Many) +
                    "</style>";
         },
         0, 0},
        {"open strings in CSS",
         [] { return "<style>" + repeated("@import '\\", Many) + "</style>"; }, 1, 0},
        {"references that are none",
         [] { return "<a href='" + repeated("&#x;&CounterClockwiseContourIntegra", Many) + "'>"; },
         1, 0},
        {"bytes that are no UTF-8",
         [] { return "<meta charset=utf-8>" + repeated("\xE9\xF0\x90<a href=\xC3>", Many); }, Many,
         0},
        {"NUL bytes", [] { return "<a href='" + std::string(Many, '\0') + "'>"; }, 1, 0},
    };
    for (const Row& row : rows) {
        PageContent content;
        readPage(row.page(), PageKind::Html, content);
        EXPECT_EQ(content.references.size(), row.references) << row.name;
        EXPECT_EQ(content.ids.size(), row.ids) << row.name;
    }
}

TEST(BadInput, OfDataTakesLinearTime) {
    constexpr std::size_t Many = 20000;
    PageContent content;
    readPage(repeated("{\"icons\":[", Many), PageKind::Manifest, content);
    EXPECT_EQ(content.references.size(), 0U);
    readPage("{\"start_url\":\"" + repeated("\\\\", Many) + "\"}", PageKind::Manifest, content);
    EXPECT_EQ(content.references.size(), 1U);
    readPage(repeated("<loc><!--", Many), PageKind::Feed, content);
    EXPECT_EQ(content.references.size(), 0U);
    readPage(repeated("<loc>a", Many), PageKind::Feed, content);
    EXPECT_EQ(content.references.size(), Many - 1);
}

} // namespace
} // namespace quillmark::web::test

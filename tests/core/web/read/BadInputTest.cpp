#include "web/page/PageContent.h"

#include <gtest/gtest.h>

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
    std::string page;
    std::size_t references;
    std::size_t ids = 0;
    PageKind kind = PageKind::Html;
};

// Reading that takes more than linear time never ends here: each page is very many of something.
TEST(BadInput, TakesLinearTime) {
    constexpr std::size_t Many = 20000;
    const std::vector<Row> rows = {
        {"one long line", repeated("<a href=x>y", Many), Many},
        {"less-than signs", repeated("<", Many), 0},
        {"a long attribute", "<a href='" + repeated("a&amp;\r", Many) + "'>", 1},
        {"attributes", "<a " + repeated("href=x id=y ", Many) + ">", 1, 1},
        {"srcset", "<img srcset='" + repeated("a&amp; 1x, ", Many) + "'>", Many},
        {"addresses in a style attribute", "<p style='" + repeated("url(a)&lt;", Many) + "'>",
         Many},
        {"open comments", repeated("<!--", Many), 0},
        {"dashes", "<!--" + repeated("-", Many), 0},
        {"open PHP", repeated("<? <?x", Many), 0},
        {"open PHP in XML", "<?xml " + repeated("<?xml>", Many), 0},
        {"open CDATA in SVG", "<svg>" + repeated("<![CDATA[", Many), 0},
        {"open titles", repeated("<title></titl", Many), 0},
        {"open scripts", "<script>" + repeated("<!--<script", Many), 0},
        {"deep SVG", repeated("<svg><desc>", Many) + repeated("</math>", Many), 0},
        {"deep templates", repeated("<template><a href=x id=i>", Many), Many},
        {"ids", repeated("<p id=a&amp;>\n", Many), 0, Many},
        {"CSS",
         "<style>" + repeated("/*", Many) + "</style><style>" + repeated("url(a", Many) +
             "</style>",
         0},
        {"open strings in CSS", "<style>" + repeated("@import '\\", Many) + "</style>", 1},
        {"references that are none",
         "<a href='" + repeated("&#x;&CounterClockwiseContourIntegra", Many) + "'>", 1},
        {"bytes that are no UTF-8",
         "<meta charset=utf-8>" + repeated("\xE9\xF0\x90<a href=\xC3>", Many), Many},
        {"NUL bytes", "<a href='" + std::string(Many, '\0') + "'>", 1},
        {"open lists in a manifest", repeated("{\"icons\":[", Many), 0, 0, PageKind::Manifest},
        {"escapes in a manifest", "{\"start_url\":\"" + repeated("\\\\", Many) + "\"}", 1, 0,
         PageKind::Manifest},
        {"open comments in a feed", repeated("<loc><!--", Many), 0, 0, PageKind::Feed},
        {"open elements in a feed", repeated("<loc>a", Many), Many - 1, 0, PageKind::Feed},
    };
    for (const Row& row : rows) {
        PageContent content;
        readPage(row.page, row.kind, content);
        EXPECT_EQ(content.references.size(), row.references) << row.name;
        EXPECT_EQ(content.ids.size(), row.ids) << row.name;
    }
}

} // namespace
} // namespace quillmark::web::test

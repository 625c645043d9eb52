#include "core/web/read/Judge.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace quillmark::web::test {
namespace {

struct Row {
    const char* name;
    std::string page;
    Lines lines;
    bool judged = true; ///< libgumbo sees the same.
    PageKind kind = PageKind::Html;
};

// clang-format off
const std::vector<Row> Rows = {
    {"no page", "", {}},
    {"quotes", "<a href=\"a b\"><a href='c\"d'><a href=e>", {"1:10 a href a b", "1:24 a href c\"d", "1:37 a href e"}},
    {"unquoted value with a slash", "<a href=x/>y", {"1:9 a href x/"}},
    {"slashes between attributes", "<a/href=x/ /id=i>", {"1:9 a href x/", "#i"}},
    {"blanks around the equals sign", "<a\thref \n=\f x>", {"2:4 a href x"}},
    {"attribute over line ends", "<a\r\n  href=\"x\n y\">", {"2:9 a href x\n y"}},
    {"CR alone ends a line", "a\rb\r<a href=x>", {"3:9 a href x"}},
    {"column in characters", "\t\xC3\xA9\xE2\x82\xAC<a href=x>", {"1:12 a href x"}},
    {"first of two attributes", "<a HREF=x href=y>", {"1:9 a href x"}},
    {"no value", "<a href><a href=>", {"1:8 a href ", "1:17 a href "}, false}, // Its place: gumbo says 1:1.
    {"all capitals", "<A HREF=X NAME=N>", {"1:9 a href X", "#N"}},
    {"tag without an end", "<a href=x><a href=\"y", {"1:9 a href x"}},
    {"less-than signs that begin no tag", "< a href=x><<a href=y>a<3<", {"1:21 a href y"}},
    {"end tag with attributes", "</a href=\">\"><a href=x>", {"1:22 a href x"}},
    {"NUL bytes", std::string("<a href=a\0b><a\0 href=c>", 23), {"1:9 a href a\xEF\xBF\xBD" "b"}, false},
    {"named references", "<a href='?a&amp;b&lt;c&notit;&eacute&nGt;'>", {"1:10 a href ?a&b<c&notit;\xC3\xA9\xE2\x89\xAB\xE2\x83\x92"}},
    {"names without a semicolon", "<a href='?a=1&copy=2&copy2&copy&copy;&copyx;'>", {"1:10 a href ?a=1&copy=2&copy2\xC2\xA9\xC2\xA9&copyx;"}},
    {"numeric references", "<a href='&#65;&#x42&#X43;&#128;&#0;&#xD800;&#x110000;&#;&#x;&#99999999999;'>", {"1:10 a href ABC\xE2\x82\xAC\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD&#;&#x;\xEF\xBF\xBD"}},
    {"comments", "<!--<a href=1>--><!--><a href=2><!---><a href=3><!-- -- --!><a href=4><!--->-->", {"1:31 a href 2", "1:47 a href 3", "1:69 a href 4"}},
    {"comment up to the end", "<a href=x><!-- <a href=y>", {"1:9 a href x"}},
    {"declarations and instructions", "<!DOCTYPE a \">\"<a href=1><!x><?xml <a href=2>?></ <a href=3>><?x><a href=4>?>", {"1:24 a href 1", "1:74 a href 4"}},
    {"CDATA is a comment in HTML", "<![CDATA[<a href=1>]]><a href=2>", {"1:31 a href 2"}},
    {"CDATA in SVG", "<svg><![CDATA[<a href=1>]]><a href=2></svg><![CDATA[<a href=3>", {"1:36 a href 2"}},
    {"raw text", "<title><a href=1></title><textarea><a href=2></textarea ><xmp><a href=3></XMP/><noembed><a href=4></noembed><noframes><a href=5></noframes><iframe src=i><a href=6></iframe><a href=7>", {"1:152 iframe src i", "1:181 a href 7"}},
    {"end tags of other names in raw text", "<title></titles></a></title-><a href=1></title><a href=2>", {"1:56 a href 2"}},
    {"plaintext", "<plaintext></plaintext><a href=x>", {}},
    {"script", "<script src=s.js>'<a href=1>'</script><a href=2>", {"1:13 script src s.js", "1:47 a href 2"}},
    {"script with a comment", "<script><!-- </script><a href=1><script><!-- <script> </script><a href=3> --></script><a href=2>", {"1:31 a href 1", "1:95 a href 2"}},
    {"script in a script without a comment", "<script><script></script><a href=1>", {"1:34 a href 1"}},
    {"short comments in a script", "<script><!--><script></script><a href=1><script><!---><script></script><a href=2>", {"1:39 a href 1", "1:80 a href 2"}},
    {"noscript is markup", "<noscript><img src=x></noscript>", {"1:20 img src x"}},
    {"template", "<template><a href=1 id=i><base href=b><template></template><a href=2></template><a href=3 id=k>", {"1:19 a href 1", "1:68 a href 2", "1:89 a href 3", "#k"}},
    {"styles", "<style>a{b:url(1)}</style><style type='text/less'>a{b:url(2)}</style><p style='c:url(&quot;3&quot;)'>", {"1:16 style url() 1", "1:92 p style 3"}, false},
    {"style in SVG", "<svg><style>/*<![CDATA[*/a{b:url(1&amp;)}/*]]>*/ c:url(2&amp;)</style><style/><a href=3><path fill='url(5#a) url(#b)'/>", {"1:34 style url() 1&amp;", "1:56 style url() 2&", "1:87 a href 3", "1:105 path fill 5#a"}, false},
    {"no raw text in SVG", "<svg><title><a href=1></a></title><script><a href=2></script></svg>", {"1:21 a href 1", "1:51 a href 2"}},
    {"back to HTML in SVG", "<svg><foreignObject><style><a href=1></style></foreignObject><style><use href=2></svg>", {"1:79 use href 2"}},
    {"out of SVG", "<svg><g><p><image href=1 src=2></p></svg><div><svg><g></div><image href=1 src=2>", {"1:30 image src 2", "1:79 image src 2"}},
    {"address of SVG", "<svg><use xlink:href=1 href=2 /><image xlink:href=3 /><a href=4></svg>", {"1:29 use href 2", "1:51 image xlink:href 3", "1:63 a href 4"}},
    {"srcset", "<img srcset=' ,a,b.png 1x, c.png,d 2w (,),e,, f'>", {"1:16 img srcset a,b.png", "1:28 img srcset c.png,d", "1:43 img srcset e", "1:47 img srcset f"}},
    {"srcset with references", "<source srcset='a&amp;b 1x,c&#44;d 2x'>", {"1:17 source srcset a&b", "1:28 source srcset c,d"}, false},
    {"meta refresh", "<meta http-equiv=Refresh content=' 5 ; URL = \"a b\"c'><meta http-equiv=refresh content='0;x.html'><meta http-equiv=refresh content='7'><meta http-equiv=refresh content='0 ulr=y'>", {"1:47 meta content a b", "1:90 meta content x.html", "1:171 meta content ulr=y"}},
    {"meta of previews", "<meta property=og:image content=1><meta name=Twitter:Image content=2><meta name=author content=3>", {"1:33 meta content 1", "1:68 meta content 2"}},
    {"links", "<link href=1 rel='x STYLESHEET'><link rel=preconnect href=2><link rel='dns-prefetch' href=3><link rel='dns-prefetch stylesheet' href=4><link imagesrcset='5 1x, 6'>", {"1:12 link href 1", "1:134 link href 4", "1:155 link imagesrcset 5", "1:161 link imagesrcset 6"}},
    {"forms", "<form action=1><button formaction=2></button><input type=image src=3 formaction=4></form>", {"1:14 form action 1", "1:35 button formaction 2", "1:68 input src 3", "1:81 input formaction 4"}},
    {"media", "<video src=1 poster=2><source src=3><track src=4></video><audio src=5></audio><embed src=6><object data=7 usemap=#m></object>", {"1:12 video src 1", "1:21 video poster 2", "1:35 source src 3", "1:48 track src 4", "1:69 audio src 5", "1:90 embed src 6", "1:105 object data 7", "1:114 object usemap #m"}},
    {"citations and old attributes", "<body background=1><q cite=2></q><ins cite=3></ins><del cite=4></del><blockquote cite=5></blockquote><img src=6 longdesc=7><table background=8><tr><td background=9></table>", {"1:18 body background 1", "1:28 q cite 2", "1:44 ins cite 3", "1:62 del cite 4", "1:87 blockquote cite 5", "1:111 img src 6", "1:122 img longdesc 7", "1:142 table background 8", "1:163 td background 9"}},
    {"frames", "<frameset><frame src=1 longdesc=2></frameset>", {"1:22 frame src 1", "1:33 frame longdesc 2"}},
    {"ids and names", "<p id=a><p id=''><a id=b name=c><p name=d><map name=m><img id=e usemap=#m>", {"1:72 img usemap #m", "#a", "#b", "#c", "#e", "#m"}},
    {"no references", "<p itemtype=http://x cite=1 src=2 href=3><a rel=x ping=4 data-src=5>", {}},
    {"PHP", "<?php if ($a > 1) echo '<a href=1>'; ?><a href=2><a href='<?= $x ?>'><? echo '>'", {"1:48 a href 2"}, false},
    {"the first base", "<base target=t><a href=x><base href='a&amp;/'><base href=b>", {"base a&/", "1:24 a href x"}, false},
    {"an empty base", "<base href=''><base href=b>", {"base "}, false},
    {"XHTML", "<title/><script src=s.js /><![CDATA[<a href=1>]]><a href=2 id=i>", {"1:21 script src s.js", "1:58 a href 2", "#i"}, false, PageKind::Xhtml},
    {"SVG", "<?xml version='1.0'?><!DOCTYPE svg [<!ENTITY a 'b'>]><svg:svg id='s'><title>t</title><style>a{b:url(1)}</style><svg:use xlink:href='2#a'/><foreignObject><img src='3'/></foreignObject></svg:svg>", {"1:101 style url() 1", "1:133 use xlink:href 2#a", "1:164 img src 3", "#s"}, false, PageKind::Svg},
};
// clang-format on

TEST(Markup, IsReadAsBrowsersDo) {
    ASSERT_EQ(Rows.size(), 54U);
    for (const Row& row : Rows) {
        EXPECT_EQ(linesOf(row.page, row.kind), row.lines) << row.name;
        if (row.judged) {
            EXPECT_EQ(judge(row.page), row.lines) << row.name << ", by libgumbo";
        }
    }
}

TEST(Markup, OfTheExamplesIsReadAsByLibgumbo) {
    namespace fs = std::filesystem;
    int pages = 0;
    for (const auto& entry : fs::recursive_directory_iterator(QUILLMARK_EXAMPLES)) {
        if (entry.path().extension() == ".html") {
            std::ifstream stream(entry.path(), std::ios::binary);
            const std::string page(std::istreambuf_iterator<char>(stream), {});
            PageContent content;
            readPage(page, PageKind::Html, content);
            Lines lines = linesOf(content);
            std::erase_if(lines, [](auto& line) { return line.find(" style ") != line.npos; });
            EXPECT_EQ(lines, judge(content.decoded.empty() ? page : content.decoded))
                << entry.path();
            ++pages;
        }
    }
    EXPECT_GT(pages, 20);
}

TEST(Markup, HasARoleForEachReference) {
    const std::vector<std::pair<std::string, Role>> rows = {
        {"<a href=x>", Role::Link},
        {"<form action=x>", Role::Form},
        {"<link rel=stylesheet href=x>", Role::Sheet},
        {"<link rel='alternate stylesheet' type='text/css; charset=x' href=x>", Role::Sheet},
        {"<link rel=stylesheet type='text/less' href=x>", Role::Link},
        {"<style>@import 'x'</style>", Role::Sheet},
        {"<style>@import url(x)</style>", Role::Sheet},
        {"<link rel=manifest href=x>", Role::Manifest},
        {"<link rel=alternate type=application/atom+xml href=x>", Role::Feed},
        {"<link rel=alternate hreflang=de href=x>", Role::Link},
        {"<link rel=sitemap href=x>", Role::Feed},
        {"<svg><use href=x>", Role::SvgUse},
        {"<img usemap=x>", Role::UseMap},
        {"<meta property=og:image content=x>", Role::UseOnly},
        {"<template><style>@import 'x'</style>", Role::UseOnly},
    };
    for (const auto& row : rows) {
        PageContent content;
        readPage(row.first, PageKind::Html, content);
        ASSERT_EQ(content.references.size(), 1U) << row.first;
        EXPECT_EQ(content.references[0].text, "x") << row.first;
        EXPECT_EQ(content.references[0].role, row.second) << row.first;
    }
}

TEST(Markup, IsDecodedByWhatItDeclares) {
    // The bytes of each page lead to the same reference.
    const std::vector<std::pair<std::string, const char*>> rows = {
        {"<a href=\xC3\xA9>", "UTF-8"},
        {"\xEF\xBB\xBF<a href=\xC3\xA9>", "its mark"},
        {"<a href=\xE9>", "windows-1252 for lack of better"},
        {std::string("\xFF\xFE<\0a\0 \0h\0r\0e\0f\0=\0\xE9\0>\0", 22), "UTF-16, little end first"},
        {std::string("\xFE\xFF\0<\0a\0 \0h\0r\0e\0f\0=\0\xE9\0>", 22), "UTF-16, big end first"},
        {"<a href=\xC3\xA9><meta charset=UTF8>", "a label"},
        {"<a href=\x82><meta charset=cp866 charset=x>", "another encoding"},
        {"<a href=\xE9><meta charset=latin2>", "ISO 8859"},
        {"<a href=\x8F\xAB\xB1><meta http-equiv=content-type content='a; charset = \"x-euc-jp\"; "
         "b'>",
         "a declaration of old"},
        {"<a href=\xA8\xA6><!--<meta charset=latin1>--><meta charset=GB2312>", "GB"},
        {"<a href=\x8E><meta charset=macintosh>", "Macintosh"},
        {"<a href=\xC3\xA9><meta charset=utf-16>", "UTF-16 that cannot be"},
        {"<a href=\xE9>" + std::string(1024, ' ') + "<meta charset=cp866>", "too late"},
    };
    for (const auto& row : rows) {
        const std::string character = row.first.find("cp866") < 30 ? "\xD0\x92" : "\xC3\xA9";
        EXPECT_EQ(linesOf(row.first), Lines{"1:9 a href " + character}) << row.second;
    }
    EXPECT_EQ(linesOf("<a href=a\xC3\xE2\x82z><meta charset=utf-8>"),
              Lines{"1:9 a href a\xEF\xBF\xBD\xEF\xBF\xBDz"});
    EXPECT_EQ(linesOf("<?xml version='1.0' encoding='koi8-r'?><a href='\xC1'/>", PageKind::Svg),
              Lines{"1:49 a href \xD0\xB0"});
}

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

struct LongRow {
    const char* name;
    std::string page;
    std::size_t references;
    std::size_t ids = 0;
    PageKind kind = PageKind::Html;
};

// Reading that takes more than linear time never ends here: each page is very many of something.
TEST(Pages, AreReadInLinearTime) {
    constexpr std::size_t Many = 20000;
    const std::vector<LongRow> rows = {
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
    for (const LongRow& row : rows) {
        PageContent content;
        readPage(row.page, row.kind, content);
        EXPECT_EQ(content.references.size(), row.references) << row.name;
        EXPECT_EQ(content.ids.size(), row.ids) << row.name;
    }
}

} // namespace
} // namespace quillmark::web::test

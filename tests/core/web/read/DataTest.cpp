#include "core/web/read/Judge.h"

#include <gtest/gtest.h>

namespace quillmark::web::test {
namespace {

Lines read(std::string_view bytes, PageKind kind) {
    PageContent content;
    readPage(bytes, kind, content);
    return linesOf(content);
}

TEST(Manifest, NamesItsPicturesAndPages) {
    EXPECT_EQ(
        read("{\"name\": \"src\", \"start_url\": \".\\/?a=\\\"\\u00e9\",\n"
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
    EXPECT_EQ(read("{\"start_url\": \"a\", \"icons\": [{\"src\": \"b\"} {\"src\": \"c\"}",
                   PageKind::Manifest),
              (Lines{"1:16  start_url a", "1:39 icons src b"}));
    for (const std::string rubbish :
         {"", "x", "[", "\"a\"", "[\"a\"]", "{\"start_url\": \"a", "]}"}) {
        EXPECT_EQ(read(rubbish, PageKind::Manifest), Lines{}) << rubbish;
    }
}

TEST(Feed, NamesItsPages) {
    EXPECT_EQ(read("<?xml version='1.0'?><urlset><url>\n<loc> http://x/a?b&amp;c </loc>"
                   "<image:loc><![CDATA[d&e]]></image:loc></url></urlset>",
                   PageKind::Feed),
              (Lines{"2:7 loc  http://x/a?b&c", "2:52 loc  d&e"}));
    EXPECT_EQ(read("<rss><channel><link>a</link><item><enclosure url='b.mp3'/><link/></item>"
                   "<image><url>c.png</url></image></channel></rss>",
                   PageKind::Feed),
              (Lines{"1:21 link  a", "1:51 enclosure url b.mp3", "1:85 url  c.png"}));
    EXPECT_EQ(read("<feed><link href='a' rel='self'/><entry><link href='b'></link></entry></feed>",
                   PageKind::Feed),
              (Lines{"1:19 link href a", "1:53 link href b"}));
}

} // namespace
} // namespace quillmark::web::test

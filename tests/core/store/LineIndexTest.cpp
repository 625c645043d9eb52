#include "store/LineIndex.h"

#include <gtest/gtest.h>

#include <string>

namespace quillmark {
namespace {

TEST(LineIndex, FollowsAGrowingList) {
    ResultList list;
    LineIndex index(list, NameComparison::Exact);
    for (int i = 0; i < 3000; ++i) {
        const std::string line = "/site/page" + std::to_string(i);
        ASSERT_FALSE(index.contains(line));
        list.Append(line);
        ASSERT_TRUE(index.contains(line));
    }
    EXPECT_TRUE(index.contains("/site/page0"));
    EXPECT_FALSE(index.contains("/SITE/page0"));
}

TEST(LineIndex, IgnoresCaseWhenAsked) {
    ResultList list;
    list.Append("/a/Caf\u00E9.htm");
    LineIndex index(list, NameComparison::IgnoreCase);
    EXPECT_TRUE(index.contains("/A/CAF\u00C9.HTM"));
    EXPECT_FALSE(index.contains("/A/CAFE.HTM"));
}

} // namespace
} // namespace quillmark

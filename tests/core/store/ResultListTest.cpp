#include "store/ResultList.h"
#include "store/CappedList.h"

#include "support/Lists.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace quillmark {
namespace {

/// A result list beside a plain vector that is treated alike, and the views of all lines ever
/// appended.
struct Model {
    void step() {
        if (random() % 4 < 3 || lines.empty()) {
            lines.emplace_back(random() % 40, static_cast<char>('a' + random() % 26));
            list.Append(lines.back());
            views.emplace_back(list.Line(list.Count() - 1), lines.back());
        } else {
            const auto i = static_cast<int>(random() % lines.size());
            list.Remove(i);
            lines.erase(lines.begin() + i);
        }
    }

    std::mt19937 random;
    ResultList list;
    Lines lines;
    std::vector<std::pair<std::string_view, std::string>> views;
};

TEST(ResultList, ActsAsAVectorOfLinesThatStayInPlace) {
    for (const unsigned seed : {1U, 2U, 3U, 4U, 5U}) {
        Model model{std::mt19937(seed), {}, {}, {}};
        for (int i = 0; i < 1500; ++i) {
            model.step();
            ASSERT_EQ(linesOf(model.list), model.lines) << "after step " << i << " of " << seed;
        }
        for (const auto& [view, line] : model.views) {
            ASSERT_EQ(view, line);
        }
        ResultList copy = model.list;
        ResultList assigned = listOf({"old"});
        assigned = model.list;
        copy.Append("further");
        EXPECT_EQ(linesOf(model.list), model.lines) << "a copy is a list of its own";
        model.list.Clear();
        model.list.Append("first of the next run");
        EXPECT_EQ(linesOf(assigned), model.lines);
        EXPECT_EQ(linesOf(model.list), Lines{"first of the next run"});
    }
}

TEST(ResultList, SharesTheBytesOfALineForAsLongAsEitherListNeedsThem) {
    ResultList references = listOf({"a", "b"});
    ResultList invalid;
    {
        ResultList between;
        between.AppendFrom(references, 1);
        invalid.AppendFrom(between, 0);
    }
    EXPECT_EQ(invalid.Line(0).data(), references.Line(1).data());
    references.Clear();
    references.Append("another, of the next run");
    EXPECT_EQ(linesOf(invalid), Lines{"b"});
    invalid.Append("c");
    invalid.Append("c");
    EXPECT_EQ(invalid.Line(1).data(), invalid.Line(2).data()) << "a page makes many references";
}

TEST(CappedList, LetsOlderLinesGoBeforeTheyFillTheMemory) {
    CappedList list;
    const std::string half(CappedList::LargestSize / 2, 'x');
    list.Append("first");
    list.Append(half);
    list.Append(half);
    EXPECT_EQ(list.Count(), 2);
    list.Append(half + half + half);
    EXPECT_EQ(list.Count(), 1) << "the newest line stays, whatever its length";
    list.Append("last");
    EXPECT_EQ(linesOf(list), Lines{"last"});
}

} // namespace
} // namespace quillmark

#include "store/ResultList.h"

#include "core/store/Lists.h"
#include "store/LineIndex.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace quillmark {
namespace {

/// A result list beside a plain vector that is treated alike, and the views of all lines ever
/// appended.
struct Model {
    void remove(int i) {
        list.Remove(i);
        lines.erase(lines.begin() + i);
    }
    /// Walks the list, up or down, and removes one line in three.
    void removeInPass() {
        const bool down = random() % 2 == 0;
        for (int i = down ? list.Count() - 1 : 0; i >= 0 && i < list.Count(); i += down ? -1 : 1) {
            if (random() % 3 == 0) {
                remove(i);
                i -= down ? 0 : 1;
            }
        }
    }
    void step() {
        const auto kind = random() % 100;
        if (kind < 75 || lines.empty()) {
            lines.emplace_back(random() % 40, static_cast<char>('a' + random() % 26));
            list.Append(lines.back());
            views.emplace_back(list.Line(list.Count() - 1), lines.back());
        } else if (kind < 97) {
            remove(static_cast<int>(random() % lines.size()));
        } else {
            removeInPass();
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

TEST(LineIndex, FollowsAGrowingList) {
    ResultList list;
    LineIndex exact(list, NameComparison::Exact);
    LineIndex index(list, NameComparison::IgnoreCase);
    for (int i = 0; i < 3000; ++i) {
        const std::string line = "/site/caf\u00E9" + std::to_string(i);
        ASSERT_FALSE(exact.contains(line));
        list.Append(line);
        ASSERT_TRUE(exact.contains(line));
    }
    EXPECT_TRUE(exact.contains("/site/caf\u00E90"));
    EXPECT_FALSE(exact.contains("/SITE/CAF\u00C90"));
    EXPECT_TRUE(index.contains("/SITE/CAF\u00C92999"));
}

} // namespace
} // namespace quillmark

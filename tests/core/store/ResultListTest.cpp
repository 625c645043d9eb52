#include "store/ResultList.h"

#include "core/store/Lists.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace quillmark {
namespace {

/// A result list beside a plain vector that is treated alike, and the views of all lines ever
/// appended.
class Model {
public:
    explicit Model(unsigned seed) : random_(seed) {}

    void append() {
        const std::string line(random_() % 40, static_cast<char>('a' + random_() % 26));
        list.Append(line);
        lines.push_back(line);
        views_.emplace_back(list.Line(list.Count() - 1), line);
    }
    void removeOne() {
        if (!lines.empty()) {
            remove(static_cast<int>(random_() % lines.size()));
        }
    }
    /// Walks the list, up or down, and removes one line in three.
    void removeInPass() {
        const bool down = random_() % 2 == 0;
        for (int i = down ? list.Count() - 1 : 0; i >= 0 && i < list.Count(); i += down ? -1 : 1) {
            if (random_() % 3 == 0) {
                remove(i);
                i -= down ? 0 : 1;
            }
        }
    }
    void step() {
        const auto kind = random_() % 100;
        if (kind < 75) {
            append();
        } else if (kind < 97) {
            removeOne();
        } else {
            removeInPass();
        }
    }
    void expectViewsUnchanged() const {
        for (const auto& [view, line] : views_) {
            ASSERT_EQ(view, line);
        }
    }

    ResultList list;
    std::vector<std::string> lines;

private:
    void remove(int i) {
        list.Remove(i);
        lines.erase(lines.begin() + i);
    }

    std::mt19937 random_;
    std::vector<std::pair<std::string_view, std::string>> views_;
};

class ResultListTest : public testing::TestWithParam<unsigned> {};

TEST_P(ResultListTest, ActsAsAVectorOfLinesThatStayInPlace) {
    Model model(GetParam());
    for (int i = 0; i < 1500; ++i) {
        model.step();
        ASSERT_EQ(linesOf(model.list), model.lines) << "after step " << i;
    }
    model.expectViewsUnchanged();
}

TEST_P(ResultListTest, CopiesAreApart) {
    Model model(GetParam());
    for (int i = 0; i < 200; ++i) {
        model.step();
    }
    ResultList copy = model.list;
    ResultList assigned = listOf({"old"});
    assigned = model.list;
    EXPECT_TRUE(copy == model.list);
    copy.Append("further");
    EXPECT_FALSE(copy == model.list);
    model.list.Clear();
    model.list.Append("first of the next run");
    EXPECT_EQ(linesOf(assigned), model.lines);
    EXPECT_EQ(linesOf(model.list), std::vector<std::string>{"first of the next run"});
}

INSTANTIATE_TEST_SUITE_P(Seeds, ResultListTest, testing::Range(1U, 6U),
                         [](const auto& seed) { return "Seed" + std::to_string(seed.param); });

} // namespace
} // namespace quillmark

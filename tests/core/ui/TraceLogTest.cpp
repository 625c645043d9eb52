#include "ui/TraceLog.h"

#include "core/store/Lists.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

struct TextRow {
    const char* name;
    std::string_view text;
    std::vector<std::string> lines;
};

class TraceLogTest : public testing::TestWithParam<TextRow> {};

TEST_P(TraceLogTest, KeepsTextAsLines) {
    TraceLog trace;
    trace.Trace(GetParam().text);
    EXPECT_EQ(linesOf(trace.DebugList()), GetParam().lines);
}

const std::vector<TextRow> TextRows = {{"Empty", "", {""}},
                                       {"WithoutLineEnd", "USER me", {"USER me"}},
                                       {"OneLine", "220 ready\r\n", {"220 ready"}},
                                       {"LineEndOnly", "\r\n", {""}},
                                       {"TailIsDropped", "a\r\nb\r\nc", {"a", "b"}},
                                       {"EmptyLineInside", "a\r\n\r\nb\r\n", {"a", "", "b"}},
                                       {"HalfLineEnds", "a\rb\nc", {"a\rb\nc"}},
                                       {"Password", "PASS secret\r\n", {"PASS"}},
                                       {"PasswordAcrossLines", "PASSse\r\ncret\r\n", {"PASS"}},
                                       {"PasswordLater", "230 PASS ok", {"230 PASS ok"}},
                                       {"SmallLetters", "pass word", {"pass word"}}};

INSTANTIATE_TEST_SUITE_P(Texts, TraceLogTest, testing::ValuesIn(TextRows),
                         [](const auto& row) { return row.param.name; });

TEST(TraceLog, LosesOneLineForEachCallWhenFull) {
    TraceLog trace;
    for (int i = 0; i < 60; ++i) {
        trace.Trace("line " + std::to_string(i));
    }
    EXPECT_EQ(trace.DebugList().Count(), 51);
    EXPECT_EQ(trace.DebugList().Line(0), "line 9");
    trace.Trace("a\r\nb\r\nc\r\n");
    EXPECT_EQ(trace.DebugList().Count(), 53);
    EXPECT_EQ(trace.DebugList().Line(0), "line 10");
    trace.Clear();
    EXPECT_EQ(trace.DebugList().Count(), 0);
}

} // namespace
} // namespace quillmark

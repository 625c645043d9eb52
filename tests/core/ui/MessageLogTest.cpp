#include "ui/MessageLog.h"

#include "base/Failure.h"
#include "core/ui/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace quillmark {
namespace {

class RecordedSink : public MessageSink {
public:
    void posted(bool debug, std::string_view text) override {
        lines.push_back((debug ? "debug " : "") + std::string(text));
    }
    bool wantsDebug() const override { return wanted; }

    bool wanted = false;
    std::vector<std::string> lines;
};

/// A message log with all that it sends messages to.
struct LogParts {
    TemporaryFolder folder;
    Configuration configuration;
    RunState run;
    CappedList message;
    TraceLog trace;
    RecordedSink sink;
    std::filesystem::path file = folder / "Quillmark.log";
    MessageLog log{configuration, run, message, trace, file, sink};
};

/// The number of the failure that posting "Lost" ends in.
std::optional<int> failureOfPosting(LogParts& parts) {
    try {
        parts.log.MessageHandler(false, "Lost");
    } catch (const Failure& failure) {
        return failure.number();
    }
    return std::nullopt;
}

struct RouteRow {
    const char* name;
    bool debug;
    std::int16_t DEBUG;
    std::int16_t LOG_FILE;
    bool sinkWants;
    bool inMessage;
    bool inSink;
    bool inLog;
};

class RoutingTest : public testing::TestWithParam<RouteRow> {};

TEST_P(RoutingTest, ReachesItsPlaces) {
    const RouteRow& row = GetParam();
    LogParts parts;
    parts.configuration.DEBUG = row.DEBUG;
    parts.configuration.LOG_FILE = row.LOG_FILE;
    parts.configuration.TRACE_WINDOW = 1;
    parts.sink.wanted = row.sinkWants;
    parts.log.MessageHandler(row.debug, "Hello");
    EXPECT_EQ(parts.message.Count(), row.inMessage ? 1 : 0);
    EXPECT_EQ(parts.trace.DebugList().Count(), row.inMessage ? 1 : 0);
    EXPECT_EQ(parts.sink.lines.size(), row.inSink ? 1U : 0U);
    EXPECT_EQ(std::filesystem::exists(parts.file), row.inLog);
    EXPECT_EQ(parts.log.wantsDebug(), row.debug && (row.inSink || row.inLog));
}

const std::vector<RouteRow> DebugRows = {{"Off", true, 0, 1, true, false, false, false},
                                         {"NotOne", true, 2, 1, true, false, false, false},
                                         {"NowhereToGo", true, 1, 0, false, false, false, false},
                                         {"ToSink", true, 1, 0, true, false, true, false},
                                         {"ToLog", true, 1, 1, false, false, false, true},
                                         {"ToBoth", true, 1, 1, true, false, true, true}};
const std::vector<RouteRow> NormalRows = {{"WithoutLog", false, 0, 0, false, true, true, false},
                                          {"LogNotOne", false, 0, -1, false, true, true, false},
                                          {"WithLog", false, 0, 1, false, true, true, true}};

const auto RouteName = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(Debug, RoutingTest, testing::ValuesIn(DebugRows), RouteName);
INSTANTIATE_TEST_SUITE_P(Normal, RoutingTest, testing::ValuesIn(NormalRows), RouteName);

struct TraceRow {
    const char* name;
    bool localMode;
    std::int16_t TRACE_WINDOW;
    int traced;
};

class TracingTest : public testing::TestWithParam<TraceRow> {};

TEST_P(TracingTest, FollowsOptionAndMode) {
    LogParts parts;
    parts.run.localMode = GetParam().localMode;
    parts.configuration.TRACE_WINDOW = GetParam().TRACE_WINDOW;
    parts.log.post("Hello");
    ASSERT_EQ(parts.trace.DebugList().Count(), GetParam().traced);
    if (GetParam().traced == 1) {
        EXPECT_EQ(parts.trace.DebugList().Line(0), "Quillmark : Hello");
    }
}

const std::vector<TraceRow> TraceRows = {{"RemoteOn", false, 1, 1},
                                         {"RemoteOff", false, 0, 0},
                                         {"RemoteNotOne", false, 2, 0},
                                         {"LocalOn", true, 1, 0}};

INSTANTIATE_TEST_SUITE_P(Modes, TracingTest, testing::ValuesIn(TraceRows),
                         [](const auto& row) { return row.param.name; });

TEST(MessageList, KeepsTheNewest51) {
    LogParts parts;
    for (int i = 1; i <= 52; ++i) {
        parts.log.post("message ", std::to_string(i));
    }
    EXPECT_EQ(parts.message.Count(), 51);
    EXPECT_EQ(parts.message.Line(0), "message 2");
    EXPECT_EQ(parts.message.Line(50), "message 52");
}

TEST(LogFile, HoldsEveryMessageAsALine) {
    LogParts parts;
    parts.configuration.LOG_FILE = 1;
    parts.configuration.DEBUG = 1;
    parts.log.post("First");
    parts.log.postDebug("Second\nhalf");
    parts.configuration.LOG_FILE = 0;
    parts.log.post("Not logged");
    EXPECT_EQ(bytesOf(parts.file), "First\r\nSecond\nhalf\r\n");
}

TEST(LogFile, ThatCannotBeWrittenFailsBehindTheOtherPlaces) {
    LogParts parts;
    parts.configuration.LOG_FILE = 1;
    parts.configuration.TRACE_WINDOW = 1;
    std::filesystem::create_directory(parts.file);
    EXPECT_EQ(failureOfPosting(parts), 1003);
    EXPECT_EQ(parts.message.Count(), 1);
    EXPECT_EQ(parts.trace.DebugList().Count(), 1);
    EXPECT_EQ(parts.sink.lines, std::vector<std::string>{"Lost"});
}

} // namespace
} // namespace quillmark

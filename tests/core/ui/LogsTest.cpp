#include "ui/MessageLog.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "support/Lists.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

/// A message log with all that it sends messages to.
struct LogParts : MessageSink {
    void posted(bool debug, std::string_view text) override {
        shown = std::string(debug ? "debug " : "").append(text) + " ";
    }
    bool wantsDebug() const override { return sinkWants; }

    /// The places that a message has come to.
    std::string places() const {
        return std::string(message.Count() == 1 ? "list " : "")
            .append(trace.DebugList().Count() == 1 ? "trace " : "")
            .append(shown)
            .append(std::filesystem::is_regular_file(file) ? "log " : "")
            .append(log.wantsDebug() ? "wanted" : "");
    }

    bool sinkWants = false;
    std::string shown;
    test::TempFolder folder;
    Configuration configuration;
    RunState run;
    CappedList message;
    TraceLog trace;
    std::filesystem::path file = folder.path() / "Quillmark.log";
    MessageLog log{configuration, run, message, trace, file, *this};
};

struct RouteRow {
    const char* name;
    bool debug, localMode, sinkWants;
    std::int16_t DEBUG, LOG_FILE, TRACE_WINDOW;
    const char* places;
};

const std::vector<RouteRow> RouteRows = {
    {"debug not 1", true, false, true, 2, 1, 1, ""},
    {"debug nowhere to go", true, false, false, 1, 0, 1, ""},
    {"debug to sink", true, false, true, 1, 0, 1, "debug Hello wanted"},
    {"debug to log", true, false, false, 1, 1, 1, "log wanted"},
    {"log not 1", false, false, false, 0, -1, 1, "list trace Hello "},
    {"with log", false, false, false, 0, 1, 1, "list trace Hello log "},
    {"trace not 1", false, false, false, 0, 0, 2, "list Hello "},
    {"trace of a local run", false, true, false, 0, 0, 1, "list Hello "}};

TEST(MessageLog, SendsEachMessageToItsPlaces) {
    for (const RouteRow& row : RouteRows) {
        SCOPED_TRACE(row.name);
        LogParts parts;
        parts.run.localMode = row.localMode;
        parts.sinkWants = row.sinkWants;
        parts.configuration.DEBUG = row.DEBUG;
        parts.configuration.LOG_FILE = row.LOG_FILE;
        parts.configuration.TRACE_WINDOW = row.TRACE_WINDOW;
        parts.log.MessageHandler(row.debug, "Hello");
        EXPECT_EQ(parts.places(), row.places);
    }
}

TEST(MessageLog, KeepsTheNewest51AndWritesEach) {
    LogParts parts;
    parts.configuration.LOG_FILE = parts.configuration.DEBUG = 1;
    parts.log.post("First");
    parts.log.postDebug("Second\nhalf");
    EXPECT_EQ(parts.folder.read("Quillmark.log"), "First\r\nSecond\nhalf\r\n");
    for (int i = 1; i <= 52; ++i) {
        parts.log.post("message ", std::to_string(i));
    }
    EXPECT_EQ(parts.message.Count(), 51);
    EXPECT_EQ(parts.message.Line(0), "message 2");
}

TEST(MessageLog, FailsBehindTheOtherPlaces) {
    LogParts parts;
    parts.configuration.LOG_FILE = parts.configuration.TRACE_WINDOW = 1;
    std::filesystem::create_directory(parts.file);
    EXPECT_THAT([&] { parts.log.post("Lost"); },
                testing::Throws<Failure>(testing::Property(&Failure::number, 1003)));
    EXPECT_EQ(parts.places(), "list trace Lost ");
    EXPECT_EQ(parts.trace.DebugList().Line(0), "Quillmark : Lost");
}

Lines traced(std::string_view text) {
    TraceLog trace;
    trace.Trace(text);
    return linesOf(trace.DebugList());
}

TEST(TraceLog, KeepsTextAsLinesAndNoPassword) {
    EXPECT_EQ(traced(""), Lines{""});
    EXPECT_EQ(traced("\r\n"), Lines{""});
    EXPECT_EQ(traced("230 PASS ok"), Lines{"230 PASS ok"});
    EXPECT_EQ(traced("a\r\n\r\nb\r\nc"), (Lines{"a", "", "b"})) << "the tail is dropped";
    EXPECT_EQ(traced("a\rb\nc"), Lines{"a\rb\nc"});
    EXPECT_EQ(traced("PASSse\r\ncret\r\n"), Lines{"PASS"});
    EXPECT_EQ(traced("pass word"), Lines{"pass word"});
}

TEST(TraceLog, LosesOneLineForEachCallWhenFull) {
    TraceLog trace;
    for (int i = 0; i < 60; ++i) {
        trace.Trace("line " + std::to_string(i));
    }
    EXPECT_EQ(trace.DebugList().Count(), 51);
    trace.Trace("a\r\nb\r\nc\r\n");
    trace.Trace("d");
    EXPECT_EQ(trace.DebugList().Count(), 53);
    EXPECT_EQ(trace.DebugList().Line(0), "line 11");
}

TEST(TraceSave, NeverGetsBeyondTheTitleOfItsFirstFile) {
    const test::TempFolder folder;
    const auto first = folder.write("first.txt", "an older trace" + std::string(999, '.'));
    const auto second = folder.write("second.txt", "kept");
    const std::string title = "Quillmark Version " + std::string(ApplicationVersion) + "\r\n";
    TraceLog trace;
    TraceSave saver(trace);
    Lines lines;
    for (int i = 0; i < 51; ++i) {
        trace.Trace(lines.emplace_back(std::to_string(i)));
    }
    using Chosen = std::optional<std::filesystem::path>;
    for (const Chosen& chosen :
         {Chosen(), Chosen(folder.path() / "missing" / "trace.txt"), Chosen(first), Chosen(second),
          Chosen(folder.path() / "third.txt"), Chosen(first)}) {
        saver.save(chosen);
        lines.emplace_back("Unable to save trace window");
        EXPECT_EQ(linesOf(trace.DebugList()), lines);
    }
    EXPECT_EQ(folder.read("first.txt"), title) << "while it is still open";
    EXPECT_EQ(folder.read("second.txt"), "kept");
    EXPECT_FALSE(exists(folder.path() / "third.txt"));
}

} // namespace
} // namespace quillmark

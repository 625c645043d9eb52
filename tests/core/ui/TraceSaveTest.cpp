#include "ui/TraceLog.h"

#include "base/Version.h"
#include "support/Lists.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace quillmark {
namespace {

TEST(TraceSave, NeverGetsBeyondTheTitleOfItsFirstFile) {
    const test::TempFolder folder;
    const auto first = folder.write("first.txt", "an older trace" + std::string(999, '.'));
    const auto second = folder.write("second.txt", "kept");
    const std::string title = "Quillmark Version " + std::string(ApplicationVersion) + "\r\n";
    TraceLog trace;
    TraceSave saver(trace);
    Lines lines;
    const auto expectFailure = [&](const std::optional<std::filesystem::path>& chosen) {
        saver.save(chosen);
        lines.emplace_back("Unable to save trace window");
        EXPECT_EQ(linesOf(trace.DebugList()), lines);
    };
    for (int i = 0; i < 51; ++i) {
        trace.Trace(lines.emplace_back(std::to_string(i)));
    }
    expectFailure(std::nullopt);
    expectFailure(folder.path() / "missing" / "trace.txt");
    expectFailure(first);
    EXPECT_EQ(folder.read("first.txt"), title) << "while it is still open";
    for (const auto& later : {second, folder.path() / "third.txt", first}) {
        expectFailure(later);
    }
    EXPECT_EQ(folder.read("first.txt"), title);
    EXPECT_EQ(folder.read("second.txt"), "kept");
    EXPECT_FALSE(exists(folder.path() / "third.txt"));
}

} // namespace
} // namespace quillmark

#pragma once

#include "platform/ProgramFolder.h"
#include "support/RunFakes.h"
#include "windows/outside/WindowContext.h"
#include "windows/support/Controls.h"

#include <deque>

namespace quillmark::test {

/// File dialogs that answer what the test says, in order, and keep what they were asked.
class ScriptedFileDialogs : public FileDialogs {
public:
    using Chosen = std::optional<std::filesystem::path>;
    Chosen saveFile(QWidget* /*owner*/, const SaveQuestion& question) override {
        asked.push_back(question);
        return next();
    }
    Chosen openPage(QWidget* /*owner*/) override { return next(); }
    Chosen openKeyFile(QWidget* /*owner*/) override { return next(); }

    std::deque<Chosen> answers; ///< None left: cancelled.
    std::vector<SaveQuestion> asked;

private:
    Chosen next() {
        if (answers.empty()) {
            return std::nullopt;
        }
        auto answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

/// Keeps what was to be opened.
class RecordingShell : public Shell {
public:
    void open(std::string_view target) override {
        opened.emplace_back(target);
        failing();
    }
    bool startsProgram(std::string_view target) const override { return target == program; }
    bool hasEditor() const override { return true; }
    void edit(std::string_view file, std::uint32_t line) override {
        opened.push_back(std::string(file) + ":" + std::to_string(line));
    }
    std::string program; ///< The target that is a program.
    std::function<void()> failing = [] {};
    Lines opened;
};

/// Keeps what was to be printed.
class RecordingPrinter : public ReportPrinter {
public:
    bool available() const override { return there; }
    void print(const QStringList& lines) override {
        printed.push_back(lines);
        whilePrinting();
    }
    bool there = true;
    std::function<void()> whilePrinting = [] {};
    std::vector<QStringList> printed;
};

/// All that a window needs, on a program folder of the test's own; what a person, a web host or
/// another program would answer is scripted.
struct TestContext {
    TestContext() { SetDefaultSettings(workspace.settings); }

    TempFolder folder;
    Workspace workspace;
    ProgramFolder files{ToBackSlashes(folder.path().string())};
    RecordingMessages messages;
    RecordingWindow progress;
    DiskAdapter disk;
    FolderHost host;
    RecordingShell shell;
    ScriptedFileDialogs dialogs;
    RecordingPrinter printer;
    WindowContext context{workspace, files, messages, progress, disk,
                          host,      shell, dialogs,  printer,  folder.path()};
};

} // namespace quillmark::test

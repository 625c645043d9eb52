#pragma once

#include "base/Paths.h"
#include "platform/ProgramFolder.h"
#include "platform/disk/DiskAdapter.h"
#include "platform/host/FtpTrace.h"
#include "platform/host/FtpXCtl.h"
#include "run/EventLoop.h"
#include "settings/DefaultSettings.h"
#include "support/TempFolder.h"
#include "ui/MessageLog.h"
#include "windows/outside/WindowContext.h"
#include "windows/support/Patience.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmark::test {

/// File dialogs that answer what the test says, in order, and keep what they were asked.
class ScriptedFileDialogs : public FileDialogs {
public:
    std::optional<std::filesystem::path> saveFile(QWidget* /*owner*/,
                                                  const SaveQuestion& question) override {
        asked.push_back(question);
        return next();
    }
    std::optional<std::filesystem::path> openPage(QWidget* /*owner*/) override { return next(); }
    std::optional<std::filesystem::path> openKeyFile(QWidget* /*owner*/) override { return next(); }

    std::deque<std::optional<std::filesystem::path>> answers; ///< None left: cancelled.
    std::vector<SaveQuestion> asked;

private:
    std::optional<std::filesystem::path> next() {
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
    std::vector<std::string> opened;
};

/// Keeps what was to be printed.
class RecordingPrinter : public ReportPrinter {
public:
    bool available() const override { return there; }
    void print(const QStringList& lines) override { printed.push_back(lines); }
    bool there = true;
    std::vector<QStringList> printed;
};

class QuietSink : public MessageSink {
public:
    void posted(bool /*debug*/, std::string_view /*text*/) override {}
    bool wantsDebug() const override { return false; }
};
class QuietProgress : public Progress {
public:
    void InitializeThinking(std::string_view /*title*/) override {}
    void UpdateThinking(int /*current*/, int /*total*/) override {}
    void RemoveThinking() override {}
};
class QuietEvents : public EventLoop {
public:
    void DoEvents() override {}
};
class NoTrust : public HostTrust {
public:
    bool trusts(const HostIdentity& /*identity*/) override { return false; }
};
class QuietTrace : public FtpTrace {
public:
    void Trace(std::string_view /*text*/) override {}
};

/// All that a window needs, on a program folder of the test's own; what a person or another program
/// would answer is scripted, everything else is real.
struct TestContext {
    TestContext() { SetDefaultSettings(workspace.settings); }

    TempFolder folder;
    Workspace workspace;
    ProgramFolder files{ToBackSlashes(folder.path().string())};
    QuietSink sink;
    MessageLog messages{workspace.settings.configuration, workspace.run,
                        workspace.lists.Message,          workspace.trace,
                        folder.path() / "Quillmark.log",  sink};
    QuietProgress progress;
    QuietEvents events;
    QuietTrace trace;
    NoTrust trust;
    DiskAdapter disk;
    FtpXCtl ftp{messages, events, workspace.run, trace, trust, FtpTimeouts()};
    RecordingShell shell;
    ScriptedFileDialogs dialogs;
    RecordingPrinter printer;
    WindowContext context{workspace, files, messages, progress, disk,
                          ftp,       shell, dialogs,  printer,  folder.path()};
};

} // namespace quillmark::test

#pragma once

#include "check/CheckRun.h"
#include "desktop/WindowEvents.h"
#include "desktop/WindowFeeds.h"
#include "platform/ProgramFolder.h"
#include "platform/disk/DiskAdapter.h"
#include "platform/disk/SiteDisk.h"
#include "platform/host/FtpXCtl.h"
#include "platform/http/Inet.h"
#include "run/RunListener.h"
#include "ui/MessageLog.h"
#include "ui/Workspace.h"
#include "windows/main/frmMain.h"
#include "windows/run/ThinkingWindow.h"

#include <filesystem>
#include <functional>
#include <string_view>

namespace quillmark {

/// The parts of the desktop that the program uses besides its windows.
struct DesktopParts {
    Shell& shell;
    FileDialogs& dialogs;
    ReportPrinter& printer;
    std::function<void(std::string_view name)> playSound;
};

/// The desktop program: owns all its parts for as long as it runs, and connects them.
class Program : private RunCommands, private RunListener, private HostTrust {
public:
    /// `folder` is the program's own folder, `help` that of the help pages, both in the machine's
    /// own form. Reads the configuration; if the user must know something about it, the text goes
    /// to `messageBox`.
    Program(std::filesystem::path folder, std::filesystem::path help, const DesktopParts& parts,
            const std::function<void(std::string_view)>& messageBox);

    frmMain& window() { return window_; }

private:
    void requireStartFile() override;
    void start() override;
    void fillLists();
    void stop() override { run_.stop(); }

    void InitializeThinking(std::string_view title) override {
        progress_.InitializeThinking(title);
    }
    void UpdateThinking(int current, int total) override {
        progress_.UpdateThinking(current, total);
    }
    void RemoveThinking() override { progress_.RemoveThinking(); }
    void enterRunState() override { window_.enterRunState(); }
    void leaveRunState() override;
    void showTraceWindow() override { window_.showTraceWindow(); }
    void ShowResults() override;
    void play(std::string_view name) override { playSound_(name); }
    bool trusts(const HostIdentity& identity) override { return window_.trustsHost(identity); }

    std::filesystem::path folder_;
    ProgramFolder files_;
    Workspace workspace_;
    MessageFeed feed_;
    MessageLog messages_;
    WindowEvents events_;
    ThinkingWindow progress_;
    DiskAdapter disk_;
    SiteDisk site_;
    HostTrace trace_;
    FtpXCtl ftp_;
    Inet inet_;
    std::function<void(std::string_view name)> playSound_;
    frmMain window_;
    Outside outside_;
    CheckRun run_;
};

} // namespace quillmark

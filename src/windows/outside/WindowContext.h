#pragma once

#include "run/FtpComponent.h"
#include "run/LocalDisk.h"
#include "run/Messages.h"
#include "settings/SettingsFiles.h"
#include "store/Progress.h"
#include "ui/Workspace.h"
#include "windows/outside/Desktop.h"

#include <filesystem>

namespace quillmark {

/// What the windows show and what they work with. Everything outlives them.
struct WindowContext {
    Workspace& workspace;
    SettingsFiles& files;
    Messages& messages;
    Progress& progress;
    LocalDisk& disk;
    FtpComponent& ftp;
    Shell& shell;
    FileDialogs& dialogs;
    ReportPrinter& printer;
    std::filesystem::path programFolder; ///< In the machine's own form.
};

} // namespace quillmark

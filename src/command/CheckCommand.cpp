#include "command/CheckCommand.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "command/ExitStatus.h"
#include "command/HeadlessRun.h"
#include "command/NoHost.h"
#include "command/StopSignal.h"
#include "command/output/Complaint.h"
#include "command/output/Results.h"
#include "command/output/TerminalMessages.h"
#include "command/start/RunSettings.h"
#include "command/start/StartFile.h"
#include "engine/run/CheckRun.h"
#include "platform/Console.h"
#include "platform/FolderChoice.h"
#include "platform/FolderLock.h"
#include "platform/ProgramFolder.h"
#include "platform/disk/DiskAdapter.h"
#include "ui/MessageLog.h"
#include "ui/Workspace.h"

#include <exception>
#include <filesystem>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

fs::path programFolderFor(const Options& options) {
    try {
        return chooseProgramFolder(options.folder);
    } catch (const Failure& failure) {
        throw CannotStart("the program's own folder cannot be used (" + failure.description() +
                          "); name another with --folder DIR");
    }
}

MessageDetail detailFor(const Options& options) {
    if (options.quiet) {
        return MessageDetail::None;
    }
    if (options.verbose) {
        return MessageDetail::Debug;
    }
    return isTerminal(Stream::Error) && !options.noProgress ? MessageDetail::Newest
                                                            : MessageDetail::Lines;
}

RunOutcome performRun(const Options& options, Workspace& workspace, const fs::path& folder) {
    TerminalMessages terminal(detailFor(options));
    MessageLog messages(workspace.settings.configuration, workspace.run, workspace.lists.Message,
                        workspace.trace, folder / "Quillmark.log", terminal);
    DiskAdapter disk;
    NoHost host;
    SilentPlayer sounds;
    HeadlessWindow window;
    StopSignal events;
    Outside outside{messages, disk, host, host, terminal, sounds, window, events};
    CheckRun run(workspace.lists, workspace.run, workspace.settings, outside,
                 ToBackSlashes(folder.string()));
    events.onStop([&run] { run.stop(); });
    return run.start();
}

int statusOf(RunOutcome outcome, const Workspace& workspace) {
    if (outcome != RunOutcome::Finished) {
        return NotFinished;
    }
    return workspace.lists.InvalidReferences.Count() == 0 ? NothingInvalid : InvalidFound;
}

} // namespace

int runCheck(const Options& options) {
    bool started = false;
    try {
        requireWritableResults(options);
        const fs::path folder = programFolderFor(options);
        const FolderLock lock(folder);
        if (!lock.held()) {
            throw CannotStart("another check is running with the folder " + folder.string() +
                              "; wait for its end, or give this one its own with --folder DIR");
        }
        Workspace workspace;
        ProgramFolder files(ToBackSlashes(folder.string()));
        readSettings(options, workspace.settings, files);
        started = true;
        const RunOutcome outcome = performRun(options, workspace, folder);
        writeResults(options, outcome, workspace);
        return statusOf(outcome, workspace);
    } catch (const std::exception& error) {
        complain(error.what());
        return started ? NotFinished : NotStarted;
    }
}

} // namespace quillmark

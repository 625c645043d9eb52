#include "command/CheckCommand.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "command/ExitStatus.h"
#include "command/HeadlessRun.h"
#include "command/JsonOutput.h"
#include "command/NamedLists.h"
#include "command/NoHost.h"
#include "command/StartFile.h"
#include "command/StopSignal.h"
#include "command/Summary.h"
#include "command/Terminal.h"
#include "command/TerminalMessages.h"
#include "engine/run/CheckRun.h"
#include "platform/FolderChoice.h"
#include "platform/FolderLock.h"
#include "platform/ProgramFolder.h"
#include "platform/disk/DiskAdapter.h"
#include "settings/ConfigurationFile.h"
#include "settings/DefaultSettings.h"
#include "settings/ProfileFile.h"
#include "settings/SettingValue.h"
#include "ui/MessageLog.h"
#include "ui/ReportWriter.h"
#include "ui/Workspace.h"

#include <fstream>
#include <iostream>

#include <unistd.h>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

void complain(const std::string& text) {
    std::cerr << "quillmark-check: " << text << "\n";
}

fs::path programFolderFor(const Options& options) {
    try {
        return chooseProgramFolder(options.folder);
    } catch (const Failure& failure) {
        throw CannotStart("the program's own folder cannot be used (" + failure.description() +
                          "); name another with --folder DIR");
    }
}

void loadProfile(const std::string& name, Workspace& workspace, SettingsFiles& files) {
    const std::vector<std::string> names = ListProfiles(files);
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        std::string text = "there is no profile \"" + name + "\" in the program's folder";
        for (std::size_t i = 0; i < names.size(); ++i) {
            text += (i == 0 ? "; the profiles are: " : ", ") + names[i];
        }
        throw CannotStart(text);
    }
    if (!LoadProfile(workspace.settings, files, name)) {
        complain("the profile \"" + name + "\" is damaged; what could be read of it is used");
    }
}

void applySettings(const std::vector<std::string>& settings, Workspace& workspace) {
    for (const std::string& setting : settings) {
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos) {
            throw CannotStart("--set takes KEY=VALUE, not \"" + setting + "\"");
        }
        setByKey(workspace.settings, setting.substr(0, equals), setting.substr(equals + 1));
    }
}

void readSettings(const Options& options, Workspace& workspace, ProgramFolder& files) {
    SetDefaultSettings(workspace.settings);
    ReadConfigurations(workspace.settings, files,
                       [](std::string_view text) { complain(printable(text)); });
    Profile& profile = workspace.settings.profile;
    if (options.profile.empty()) {
        profile.START_PATH = startPathOf(options.start);
    } else {
        loadProfile(options.profile, workspace, files);
    }
    applySettings(options.set, workspace);
    if (options.verbose) {
        workspace.settings.configuration.DEBUG = 1;
    }
    if (profile.START_PATH.empty()) {
        throw CannotStart("there is no start path; give one with --set START_PATH=...");
    }
    if (profile.START_PATH.find('\\') == std::string::npos) {
        throw CannotStart("\"" + profile.START_PATH +
                          "\" is a path on a web host, and this version checks local sites only; a "
                          "local start path holds a \"\\\"");
    }
    requireStartFile(profile.START_PATH);
}

/// Told before the run, not after it: a check of a large site is not to be lost to a mistyped folder.
void requireWritable(const std::string& file) {
    if (file.empty() || file == "-") {
        return;
    }
    const fs::path folder = fs::absolute(file).parent_path();
    if (!fs::is_directory(folder) || fs::is_directory(file) ||
        access(folder.c_str(), W_OK) != 0) {
        throw CannotStart("\"" + file + "\" cannot be written; name a file in a folder that is there");
    }
}

MessageDetail detailFor(const Options& options) {
    if (options.quiet) {
        return MessageDetail::None;
    }
    if (options.verbose) {
        return MessageDetail::Debug;
    }
    return isTerminal(STDERR_FILENO) && !options.noProgress ? MessageDetail::Newest
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

void writeNamedList(std::ostream& out, const NamedList& list, const ResultLists& lists) {
    const ResultList& lines = lists.*list.lines;
    for (int i = 0; i < lines.Count(); ++i) {
        out << lines.Line(i);
        if (list.from != nullptr) {
            out << '\t' << (lists.*list.from).Line(i);
        }
        out << '\n';
    }
}

void writeJsonTo(const std::string& file, RunOutcome outcome, const Workspace& workspace) {
    if (file == "-") {
        writeJson(std::cout, outcome, workspace);
        return;
    }
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    writeJson(out, outcome, workspace);
    out.close();
    if (!out) {
        throw diskFailure("\"" + file + "\" cannot be written");
    }
}

void writeResults(const Options& options, RunOutcome outcome, const Workspace& workspace) {
    if (!options.report.empty()) {
        WriteReport(options.report, workspace.lists, workspace.settings, workspace.run);
    }
    if (!options.json.empty()) {
        writeJsonTo(options.json, outcome, workspace);
    }
    if (!options.list.empty()) {
        writeNamedList(std::cout, *findList(options.list), workspace.lists);
    }
    if (!options.hasOutput()) {
        writeSummary(std::cout, outcome, workspace, useColor(options.color));
    }
    std::cout.flush();
    if (!std::cout) {
        throw diskFailure("standard output cannot be written");
    }
}

int statusOf(RunOutcome outcome, const Workspace& workspace) {
    if (outcome != RunOutcome::Finished) {
        return NotFinished;
    }
    return workspace.lists.InvalidReferences.Count() == 0 ? NothingInvalid : InvalidFound;
}

} // namespace

int runCheck(const Options& options) {
    Workspace workspace;
    try {
        requireWritable(options.report);
        requireWritable(options.json);
        const fs::path folder = programFolderFor(options);
        const FolderLock lock(folder);
        if (!lock.held()) {
            throw CannotStart("another check is running with the folder " + folder.string() +
                              "; wait for its end, or give this one its own with --folder DIR");
        }
        ProgramFolder files(ToBackSlashes(folder.string()));
        readSettings(options, workspace, files);
        const RunOutcome outcome = performRun(options, workspace, folder);
        writeResults(options, outcome, workspace);
        return statusOf(outcome, workspace);
    } catch (const CannotStart& reason) {
        complain(reason.what());
        return NotStarted;
    } catch (const SettingError& error) {
        complain(error.what());
        return NotStarted;
    } catch (const Failure& failure) {
        complain(failure.description());
        return NotFinished;
    }
}

} // namespace quillmark

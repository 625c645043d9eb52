#include "command/Commands.h"

#include "base/Paths.h"
#include "check/CheckRun.h"
#include "command/StopSignal.h"
#include "command/output/BaselineFile.h"
#include "command/output/Results.h"
#include "command/start/ProgramPlace.h"
#include "command/start/RunSettings.h"
#include "command/terminal/Terminal.h"
#include "command/terminal/TerminalMessages.h"
#include "command/terminal/TerminalTrust.h"
#include "findings/ListProjection.h"
#include "platform/Console.h"
#include "platform/disk/DiskAdapter.h"
#include "platform/disk/SiteDisk.h"
#include "platform/host/FtpXCtl.h"
#include "platform/http/Inet.h"
#include "ui/LineWriter.h"
#include "ui/MessageLog.h"
#include "ui/ReadingWarnings.h"
#include "ui/Workspace.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

namespace quillmark {

namespace {

/// Writes the conversation with the host to the file that the command line names, if it does.
class TraceFile : public FtpTrace {
public:
    explicit TraceFile(const std::string& file) {
        if (!file.empty()) {
            writer_.emplace(file, std::ios::trunc);
        }
    }
    void Trace(std::string_view text) override {
        if (writer_) {
            writer_->line(text);
        }
    }
    /// Throws a Failure if the disk refuses what was still to be written.
    void close() {
        if (writer_) {
            writer_->close();
        }
    }

private:
    std::optional<LineWriter> writer_;
};

FetchLimits limitsFor(const Options& options) {
    FetchLimits limits;
    limits.inAll = options.fetches;
    limits.toOneHost = options.fetchesToOneHost;
    return limits;
}

/// Without a terminal nobody watches, and a log would fill with passing lines.
MessageDetail detailFor(const Options& options) {
    if (options.quiet) {
        return MessageDetail::None;
    }
    if (options.verbose) {
        return MessageDetail::Debug;
    }
    if (options.noProgress) {
        return MessageDetail::Lines;
    }
    return isTerminal(Stream::Error) ? MessageDetail::Newest : MessageDetail::None;
}

RunOutcome performRun(const Options& options, Workspace& workspace,
                      const std::filesystem::path& folder, FtpTrace& trace) {
    TerminalMessages terminal(detailFor(options));
    MessageLog messages(workspace.settings.configuration, workspace.run, workspace.lists.Message,
                        workspace.trace, folder / "Quillmark.log", terminal);
    StopSignal events;
    DiskAdapter disk;
    SiteDisk site;
    TerminalTrust trust;
    FtpXCtl ftp(messages, events, workspace.run, trace, trust, timeoutsFromEnvironment());
    Inet inet(events, workspace.run, limitsFor(options));
    Outside outside{messages, disk, ftp, inet, terminal, events, site};
    CheckRun run(workspace.lists, workspace.site, workspace.run, workspace.settings, outside,
                 ToBackSlashes(folder.string()));
    run.setWebOptions(options.web);
    events.onStop([&run] { run.stop(); });
    return run.start();
}

/// Printed with --quiet too: a site of which little was read must not look sound.
void warnOfUnread(const Workspace& workspace) {
    for (const std::string& warning :
         readingWarnings(workspace.run.reading, workspace.lists.GetFileList.Count())) {
        complain(warning);
    }
}

/// Says why the results are not whole, unless messages or the summary have said it already.
void tellOfEarlyEnd(const Options& options, const CappedList& messages) {
    constexpr int MessagesShown = 6;
    if (detailFor(options) != MessageDetail::None || printsSummary(options)) {
        return;
    }
    std::string text = "the check did not reach its end";
    for (int i = std::max(0, messages.Count() - MessagesShown); i < messages.Count(); ++i) {
        text.append("; ").append(messages.Line(i));
    }
    complain(text);
}

bool failed(const Options& options, const CheckReport& report) {
    return report.errors() > 0 || (options.strict && report.notes() > 0);
}

/// The report of a check, measured against the baseline.
CheckReport reportOf(const Options& options, RunOutcome outcome, const Workspace& workspace,
                     const std::optional<Baseline>& baseline) {
    CheckReport report =
        makeReport(outcome, workspace.site, workspace.lists, workspace.run, workspace.settings);
    report.pathPrefix = options.pathPrefix;
    if (!report.pathPrefix.empty() && !report.pathPrefix.ends_with('/')) {
        report.pathPrefix += '/';
    }
    if (baseline) {
        applyBaseline(*baseline, report);
    }
    return report;
}

int finish(const Options& options, RunOutcome outcome, Workspace& workspace,
           const std::optional<Baseline>& baseline) {
    if (workspace.site.filled && options.needsLists()) {
        projectLists(workspace.site, workspace.lists);
    }
    CheckReport report = reportOf(options, outcome, workspace, baseline);
    writeResults(options, report, workspace);
    warnOfUnread(workspace);
    if (outcome != RunOutcome::Finished) {
        tellOfEarlyEnd(options, workspace.lists.Message);
        return NotFinished;
    }
    if (!options.writeBaseline.empty()) {
        // From now on all of this is known.
        saveBaseline(options.writeBaseline, report.site());
        return NothingInvalid;
    }
    return failed(options, report) ? InvalidFound : NothingInvalid;
}

} // namespace

int runCheck(const Options& options) {
    bool started = false;
    try {
        requireWritableResults(options);
        const std::optional<Baseline> baseline = loadBaseline(options.baseline);
        ProgramPlace place(options);
        place.claim();
        Workspace workspace;
        readSettings(options, workspace.settings, place.files());
        // Until here an error means that nothing was checked.
        started = true;
        TraceFile trace(options.trace);
        const RunOutcome outcome = performRun(options, workspace, place.folder(), trace);
        const int status = finish(options, outcome, workspace, baseline);
        writing(options.trace, [&trace] { trace.close(); });
        return status;
    } catch (const std::exception& error) {
        complain(error.what());
        return started ? NotFinished : NotStarted;
    }
}

} // namespace quillmark

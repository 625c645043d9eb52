#include "command/output/Results.h"

#include "base/Failure.h"
#include "base/Printable.h"
#include "command/options/NamedLists.h"
#include "command/terminal/Terminal.h"
#include "platform/Console.h"
#include "platform/FolderChoice.h"
#include "ui/ReportWriter.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

void requireWritable(const std::string& file) {
    if (file.empty() || file == "-") {
        return;
    }
    const fs::path folder = fs::absolute(file).parent_path();
    if (!fs::is_directory(folder) || fs::is_directory(file) || !canBeWritten(folder)) {
        throw CannotStart("\"" + file +
                          "\" cannot be written; name a file in a folder that is there");
    }
}

/// Gives a program the name as it is, and a terminal what cannot steer it.
void writeName(std::string_view name) {
    static const bool toTerminal = isTerminal(Stream::Output);
    if (toTerminal) {
        std::cout << printable(name);
    } else {
        std::cout << name;
    }
}

void writeNamedList(const NamedList& list, const ResultLists& lists) {
    const ResultList& lines = lists.*list.lines;
    for (int i = 0; i < lines.Count(); ++i) {
        writeName(lines.Line(i));
        if (list.from != nullptr) {
            std::cout << '\t';
            writeName((lists.*list.from).Line(i));
        }
        std::cout << '\n';
    }
}

/// The stream knows that the disk refused, errno knows why.
void requireGood(const std::ostream& out) {
    if (!out) {
        throw failureFromError({errno, std::generic_category()}, pathNotFound());
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
    requireGood(out);
}

} // namespace

void requireWritableResults(const Options& options) {
    requireWritable(options.report);
    requireWritable(options.json);
    requireWritable(options.trace);
}

void writing(const std::string& file, const std::function<void()>& write) {
    try {
        write();
    } catch (const Failure& failure) {
        throw Failure(failure.number(), file + " could not be written: " + failure.description());
    }
}

void writeResults(const Options& options, RunOutcome outcome, const Workspace& workspace) {
    if (!options.report.empty()) {
        writing(options.report, [&] {
            WriteReport(options.report, workspace.lists, workspace.settings, workspace.run);
        });
    }
    if (!options.json.empty()) {
        writing(options.json, [&] { writeJsonTo(options.json, outcome, workspace); });
    }
    if (!options.list.empty()) {
        writeNamedList(*findList(options.list), workspace.lists);
    }
    if (!options.hasOutput()) {
        (workspace.site.filled ? writeWebSummary : writeSummary)(std::cout, outcome, workspace,
                                                                 useColor(options.color));
    }
    writing("standard output", [] { requireGood(std::cout.flush()); });
}

} // namespace quillmark

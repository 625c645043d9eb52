#include "command/output/Results.h"

#include "base/Failure.h"
#include "command/options/NamedLists.h"
#include "command/options/StartFile.h"
#include "command/output/JsonOutput.h"
#include "command/output/Summary.h"
#include "command/terminal/Terminal.h"
#include "platform/FolderChoice.h"
#include "ui/ReportWriter.h"

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

} // namespace

void requireWritableResults(const Options& options) {
    requireWritable(options.report);
    requireWritable(options.json);
    requireWritable(options.trace);
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

} // namespace quillmark

#include "command/output/Results.h"

#include "base/Failure.h"
#include "base/Printable.h"
#include "command/options/NamedLists.h"
#include "command/terminal/Terminal.h"
#include "platform/Console.h"
#include "platform/FolderChoice.h"
#include "report/formats/Formats.h"
#include "ui/ReportWriter.h"

#include <algorithm>
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

/// The stream knows that the disk refused, errno knows why.
void requireGood(const std::ostream& out) {
    if (!out) {
        throw failureFromError({errno, std::generic_category()}, pathNotFound());
    }
}

/// A program gets the name as it is, a terminal gets one that cannot control it.
void writeName(std::ostream& out, std::string_view name) {
    static const bool toTerminal = isTerminal(Stream::Output);
    if (toTerminal) {
        out << printable(name);
    } else {
        out << name;
    }
}

void writeNamedList(std::ostream& out, const NamedList& list, const ResultLists& lists) {
    const ResultList& lines = lists.*list.lines;
    for (int i = 0; i < lines.Count(); ++i) {
        writeName(out, lines.Line(i));
        if (list.from != nullptr) {
            out << '\t';
            writeName(out, (lists.*list.from).Line(i));
        }
        out << '\n';
    }
}

/// Calls `write` with the file, or with standard output for "-".
template <typename Write> void writeTo(const std::string& file, Write write) {
    if (file == "-") {
        writing("standard output", [&] {
            write(std::cout);
            requireGood(std::cout.flush());
        });
        return;
    }
    writing(file, [&] {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        write(out);
        out.close();
        requireGood(out);
    });
}

bool takesStandardOutput(const Options& options) {
    return options.json == "-" || !options.list.empty() ||
           std::any_of(options.outputs.begin(), options.outputs.end(),
                       [](const Output& output) { return output.file.empty(); });
}

/// The summary goes to standard output if nothing else does, so that the log of a CI job tells what
/// was found.
std::vector<Output> outputsFor(const Options& options) {
    std::vector<Output> outputs = options.outputs;
    if (!options.needsLists() && !takesStandardOutput(options)) {
        outputs.push_back({"text", ""});
    }
    return outputs;
}

/// Writes one result after the other, even after one that could not be written.
class Attempts {
public:
    void add(const std::function<void()>& write) {
        try {
            write();
        } catch (const Failure& failure) {
            refusals_ += (refusals_.empty() ? "" : "; ") + failure.description();
            number_ = failure.number();
        }
    }
    /// Throws a Failure that names all that could not be written.
    void finish() const {
        if (!refusals_.empty()) {
            throw Failure(number_, refusals_);
        }
    }

private:
    std::string refusals_;
    int number_ = 0;
};

void writeFormat(const Output& output, const Options& options, CheckReport& report) {
    report.color = output.file.empty() && useColor(options.color);
    writeTo(output.file.empty() ? "-" : output.file,
            [&](std::ostream& out) { findFormat(output.format)->write(out, report); });
}

} // namespace

void requireWritableResults(const Options& options) {
    requireWritable(options.report);
    requireWritable(options.json);
    requireWritable(options.trace);
    requireWritable(options.writeBaseline);
    for (const Output& output : options.outputs) {
        requireWritable(output.file);
    }
}

bool printsSummary(const Options& options) {
    const std::vector<Output> outputs = outputsFor(options);
    return std::any_of(outputs.begin(), outputs.end(), [](const Output& output) {
        return output.format == "text" && output.file.empty();
    });
}

void writing(const std::string& file, const std::function<void()>& write) {
    try {
        write();
    } catch (const Failure& failure) {
        throw Failure(failure.number(), file + " could not be written: " + failure.description());
    }
}

void writeResults(const Options& options, CheckReport& report, const Workspace& workspace) {
    Attempts attempts;
    if (!options.report.empty()) {
        attempts.add([&] {
            writing(options.report, [&] {
                WriteReport(options.report, workspace.lists, workspace.settings, workspace.run);
            });
        });
    }
    if (!options.json.empty()) {
        attempts.add([&] {
            writeTo(options.json,
                    [&](std::ostream& out) { writeJson(out, report.outcome, workspace); });
        });
    }
    if (!options.list.empty()) {
        attempts.add([&] {
            writeTo("-", [&](std::ostream& out) {
                writeNamedList(out, *findList(options.list), workspace.lists);
            });
        });
    }
    for (const Output& output : outputsFor(options)) {
        attempts.add([&] { writeFormat(output, options, report); });
    }
    attempts.finish();
}

} // namespace quillmark

#include "base/Printable.h"
#include "base/Version.h"
#include "report/formats/Formats.h"
#include "report/formats/TextParts.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr int MessagesShown = 5;
constexpr std::size_t HintColumn = 30;

void writeOutcome(std::ostream& out, const CheckReport& report) {
    if (report.outcome == RunOutcome::Finished) {
        return;
    }
    out << styled(report.color, Yellow,
                  report.outcome == RunOutcome::Aborted
                      ? "The run was aborted: these are the results so far."
                      : "The run failed: these are the results so far.")
        << " Its last messages:\n";
    const CappedList& messages = *report.messages;
    for (int i = std::max(0, messages.Count() - MessagesShown); i < messages.Count(); ++i) {
        out << "  " << printable(messages.Line(i)) << "\n";
    }
    out << "\n";
}

} // namespace

void writeText(std::ostream& out, const CheckReport& report) {
    (report.byWebRules() ? writeWebText : writeClassicText)(out, report);
}

void writeTextHeading(std::ostream& out, const CheckReport& report, const std::string& what,
                      const std::string& read) {
    const ReportCounts& counts = report.counts;
    out << styled(report.color, Bold, "Quillmark " + std::string(ApplicationVersion)) << "  "
        << what << "\n\n  " << counted(counts.pages, read, read + "s") << " read, "
        << counted(counts.references, "reference", "references") << ", "
        << counted(counts.files, "file", "files") << " in "
        << counted(counts.folders, "folder", "folders") << "\n\n";
    writeOutcome(out, report);
}

void writeCount(std::ostream& out, const CheckReport& report, const std::string& text,
                const std::string& hint) {
    if (hint.empty()) {
        out << text << "\n";
        return;
    }
    const std::size_t width = std::max(HintColumn, text.size() + 2);
    out << padded(text, width) << styled(report.color, Dim, hint) << "\n";
}

std::string findingCounts(const CheckReport& report) {
    const std::string state = report.hasBaseline ? "new " : "";
    std::string text = counted(report.errors(), state + "error", state + "errors");
    if (report.notes() > 0) {
        text += ", " + counted(report.notes(), state + "note", state + "notes");
    }
    return text + baselineCounts(report);
}

std::string baselineCounts(const CheckReport& report) {
    return report.hasBaseline ? ", " + std::to_string(report.knownCount) + " known, " +
                                    std::to_string(report.mendedCount) + " mended"
                              : "";
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::size_t countOfDuplicates(const SiteResults& site) {
    std::size_t files = 0;
    for (const auto& group : site.duplicates) {
        files += group.size();
    }
    return files;
}

} // namespace quillmark

#include "base/Printable.h"
#include "base/Version.h"
#include "command/output/Results.h"
#include "command/output/Style.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillmark {

namespace {

constexpr int MessagesShown = 5;
constexpr std::size_t HintColumn = 30;
constexpr std::size_t WidestPosition = 7;
constexpr std::size_t WidestReference = 40;

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string position(const Place& at) {
    return std::to_string(at.line) + ":" + std::to_string(at.column);
}

class WebSummary {
public:
    WebSummary(std::ostream& out, RunOutcome outcome, const Workspace& workspace, bool color)
        : out_(out), outcome_(outcome), workspace_(workspace), results_(workspace.site),
          color_(color) {}

    void write() {
        writeHeading();
        writeOutcome();
        writeFindings();
        writeTotals();
        writeIgnored();
        writeUnused();
        writeDuplicates();
    }

private:
    std::string in(std::string_view style, const std::string& text) const {
        return styled(color_, style, text);
    }

    void writeHeading() {
        const std::string top = printable(results_.top);
        out_ << in(Bold, "Quillmark " + std::string(ApplicationVersion)) << "  " << top
             << "  (web rules)\n\n  " << counted(results_.pages.size(), "file", "files")
             << " read, " << counted(results_.references.size(), "reference", "references") << ", "
             << counted(results_.files.size(), "file", "files") << " in "
             << counted(results_.folders.size() + 1, "folder", "folders") << "\n\n";
    }

    void writeOutcome() {
        if (outcome_ == RunOutcome::Finished) {
            return;
        }
        out_ << in(Yellow, outcome_ == RunOutcome::Aborted
                               ? "The run was aborted: these are the results so far."
                               : "The run failed: these are the results so far.")
             << " Its last messages:\n";
        const CappedList& messages = workspace_.lists.Message;
        for (int i = std::max(0, messages.Count() - MessagesShown); i < messages.Count(); ++i) {
            out_ << "  " << printable(messages.Line(i)) << "\n";
        }
        out_ << "\n";
    }

    void writeFindings() {
        const std::size_t errors = results_.errors();
        const std::size_t notes = results_.findings.size() - errors;
        const bool sound = errors == 0 && outcome_ == RunOutcome::Finished;
        out_ << in(sound ? Green : Red, counted(errors, "error", "errors"));
        if (notes > 0) {
            out_ << in(Yellow, ", " + counted(notes, "note", "notes"));
        }
        out_ << "\n";
        const std::vector<Finding>& findings = results_.findings;
        for (std::size_t i = 0; i < findings.size();) {
            const std::uint32_t page = findings[i].at.page;
            std::size_t end = i;
            while (end < findings.size() && findings[end].at.page == page) {
                ++end;
            }
            out_ << "  " << printable(results_.fromTop(results_.pagePath(page))) << "\n";
            writePage(i, end);
            i = end;
        }
        out_ << "\n";
    }

    /// The references stand in one column, unless one of them is long.
    void writePage(std::size_t first, std::size_t end) {
        std::size_t width = 0;
        for (std::size_t i = first; i < end; ++i) {
            const std::size_t length = printable(results_.findings[i].reference).size();
            width = length <= WidestReference ? std::max(width, length) : width;
        }
        for (std::size_t i = first; i < end; ++i) {
            const Finding& finding = results_.findings[i];
            const bool error = finding.level == FindingLevel::Error;
            out_ << "    " << padded(position(finding.at), WidestPosition) << "  "
                 << in(error ? Red : Yellow, padded(printable(finding.reference), width)) << "  "
                 << (error ? "" : "note: ") << explanationOf(finding.kind);
            if (!finding.suggestion.empty()) {
                out_ << " (did you mean " << in(Bold, printable(finding.suggestion)) << "?)";
            }
            out_ << "\n";
        }
    }

    void writeTotals() {
        bool any = false;
        for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
            const KindTotal& total = results_.totals.at(kind);
            if (total.errors + total.notes == 0) {
                continue;
            }
            any = true;
            out_ << "  " << total.errors + total.notes << " "
                 << nameOf(static_cast<FindingKind>(kind)) << " ("
                 << counted(total.targets, "target", "targets") << ")\n";
        }
        out_ << (any ? "\n" : "");
    }

    void writeIgnored() {
        std::array<std::size_t, IgnoredReasons> byReason{};
        for (const IgnoredReference& ignored : results_.ignored) {
            ++byReason.at(static_cast<std::size_t>(ignored.reason));
        }
        writeCount(counted(results_.ignored.size(), "ignored reference", "ignored references"),
                   results_.ignored.empty() ? "" : "--list IgnoredReferences");
        for (std::size_t reason = 0; reason < IgnoredReasons; ++reason) {
            if (byReason.at(reason) > 0) {
                out_ << "  " << byReason.at(reason) << " "
                     << nameOf(static_cast<IgnoredReason>(reason)) << "\n";
            }
        }
    }

    void writeUnused() {
        if (workspace_.run.unusedPass != PassProgress::Done) {
            writeCount("unused files not looked for", "");
            return;
        }
        const bool any = !results_.unused.empty();
        writeCount(counted(results_.unused.size(), "unused file", "unused files"),
                   any ? "--list UnusedList" : "");
        if (any) {
            out_ << in(Dim, "  Scripts are not read: files that only scripts name are among "
                            "them.")
                 << "\n";
        }
    }

    void writeDuplicates() {
        if (!results_.duplicatesKnown) {
            writeCount("duplicates not looked for", "--set CHECK_DUPES=1");
            return;
        }
        std::size_t files = 0;
        for (const auto& group : results_.duplicates) {
            files += group.size();
        }
        writeCount(counted(files, "duplicate file", "duplicate files"),
                   files > 0 ? "--list DuplicateList" : "");
    }

    void writeCount(const std::string& text, const std::string& hint) {
        out_ << (hint.empty() ? text : padded(text, HintColumn) + in(Dim, hint)) << "\n";
    }

    std::ostream& out_;
    RunOutcome outcome_;
    const Workspace& workspace_;
    const SiteResults& results_;
    bool color_;
};

} // namespace

void writeWebSummary(std::ostream& out, RunOutcome outcome, const Workspace& workspace,
                     bool color) {
    WebSummary(out, outcome, workspace, color).write();
}

} // namespace quillmark

#include "base/Printable.h"
#include "report/formats/Formats.h"
#include "report/formats/TextParts.h"

#include <algorithm>

namespace quillmark {

namespace {

/// What GitHub takes as one comment, less the lines that end it.
constexpr std::size_t Most = 65536 - 1024;
constexpr std::size_t LongestName = 200;

std::size_t longestRunOfBackticks(std::string_view text) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (const char c : text) {
        run = c == '`' ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

/// A code span (CommonMark 0.30, section 6.1), in which nothing means anything.
std::string code(std::string_view bytes) {
    std::string text = printable(bytes, LongestName);
    text += text.size() < printable(bytes.substr(0, 4 * LongestName)).size() ? "..." : "";
    const std::string fence(longestRunOfBackticks(text) + 1, '`');
    return fence + (fence.size() > 1 ? " " + text + " " : text) + fence;
}

class MarkdownReport {
public:
    MarkdownReport(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), site_(report.site()), errors_(report.errors()),
          notes_(report.notes()) {}

    void write() {
        writeHead();
        writeFindings();
        writeLeftOut();
    }

private:
    void writeHead() {
        out_ << "### Quillmark: " << findingCounts(report_);
        const ReportCounts& counts = report_.counts;
        out_ << "\n\n";
        if (report_.outcome != RunOutcome::Finished) {
            out_ << "**The run "
                 << (report_.outcome == RunOutcome::Aborted ? "was aborted" : "failed")
                 << ": these are the results so far.**\n\n";
        }
        out_ << counted(counts.pages, "page", "pages") << " read, "
             << counted(counts.references, "reference", "references") << ", "
             << counted(counts.files, "file", "files") << ". "
             << counted(site_.unused.size(), "unused file", "unused files") << ", "
             << counted(site_.ignored.size(), "ignored reference", "ignored references") << ".\n";
    }

    std::string line(const Finding& finding) const {
        std::string text = "- ";
        if (finding.at.line > 0) {
            text += std::to_string(finding.at.line) + ":" + std::to_string(finding.at.column) + " ";
        }
        text += code(finding.reference) + (finding.level == FindingLevel::Note ? " note: " : " ");
        text += explanationOf(finding);
        if (!finding.suggestion.empty()) {
            text += "; did you mean " + code(finding.suggestion) + "?";
        }
        return text + "\n";
    }

    void writeFindings() {
        std::size_t size = 0;
        std::uint32_t page = 0;
        bool first = true;
        for (std::size_t i = 0; i < site_.findings.size(); ++i) {
            const Finding& finding = site_.findings[i];
            if (report_.isKnown(i)) {
                continue;
            }
            std::string text = line(finding);
            if (first || page != finding.at.page) {
                text = "\n**" + code(report_.shownPage(finding.at)) + "**\n\n" + text;
            }
            size += text.size();
            if (size > Most) {
                return;
            }
            out_ << text;
            --(finding.level == FindingLevel::Error ? errors_ : notes_);
            page = finding.at.page;
            first = false;
        }
    }

    void writeLeftOut() {
        if (errors_ + notes_ > 0) {
            out_ << "\nThat is not all: " << counted(errors_, "error", "errors") << " and "
                 << counted(notes_, "note", "notes")
                 << " more do not fit into a comment. The other formats of this check have them.\n";
        }
    }

    std::ostream& out_;
    const CheckReport& report_;
    const SiteResults& site_;
    std::size_t errors_; ///< That are not written yet.
    std::size_t notes_;
};

} // namespace

void writeMarkdown(std::ostream& out, const CheckReport& report) {
    MarkdownReport(out, report).write();
}

} // namespace quillmark

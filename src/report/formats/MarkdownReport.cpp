#include "base/Printable.h"
#include "report/formats/Formats.h"
#include "report/formats/TextParts.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace quillmark {

namespace {

/// The most bytes that GitHub takes as one comment, less the lines that end it.
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

/// A code span (CommonMark 0.30, section 6.1), in which no character has a meaning.
std::string code(std::string_view bytes) {
    std::string text = printable(bytes, LongestName);
    // A character has four bytes at most: more of the text need not be looked at to see a cut.
    text += text.size() < printable(bytes.substr(0, 4 * LongestName)).size() ? "..." : "";
    const std::string fence(longestRunOfBackticks(text) + 1, '`');
    return fence + (fence.size() > 1 ? " " + text + " " : text) + fence;
}

/// Findings that one repair fixes, in most cases.
struct Defect {
    FindingKind kind;
    FindingLevel level;
    std::string_view target;

    explicit Defect(const Finding& finding)
        : kind(finding.kind), level(finding.level), target(finding.targetOrReference()) {}

    friend bool operator<(const Defect& a, const Defect& b) {
        return std::tie(a.kind, a.level, a.target) < std::tie(b.kind, b.level, b.target);
    }
};

class MarkdownReport {
public:
    MarkdownReport(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), site_(report.site()), errors_(report.errors()),
          notes_(report.notes()) {}

    void write() {
        countPlaces();
        writeHead();
        writeFindings();
        writeLeftOut();
    }

private:
    /// Counts the new findings of each defect.
    void countPlaces() {
        for (std::size_t i = 0; i < site_.findings.size(); ++i) {
            places_[Defect(site_.findings[i])] += report_.isKnown(i) ? 0U : 1U;
        }
    }

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

    static std::string line(const Finding& finding, std::size_t places) {
        std::string text = "- ";
        if (finding.at.line > 0) {
            text += std::to_string(finding.at.line) + ":" + std::to_string(finding.at.column) + " ";
        }
        text += code(finding.reference) + (finding.level == FindingLevel::Note ? " note: " : " ");
        text += explanationOf(finding);
        if (places > 1) {
            text += ", here and at " + counted(places - 1, "other place", "other places");
        }
        if (!finding.suggestion.empty()) {
            text += "; did you mean " + code(finding.suggestion) + "?";
        }
        return text + "\n";
    }

    /// A file that is missing on a thousand pages stands in one line, or nothing else would fit.
    void writeFindings() {
        std::size_t size = 0;
        std::uint32_t page = 0;
        bool first = true;
        for (std::size_t i = 0; i < site_.findings.size(); ++i) {
            const Finding& finding = site_.findings[i];
            const std::size_t places =
                report_.isKnown(i) ? 0 : std::exchange(places_[Defect(finding)], 0);
            if (places == 0) {
                continue;
            }
            std::string text = line(finding, places);
            if (first || page != finding.at.page) {
                text.insert(0, "\n**" + code(report_.shownPage(finding.at)) + "**\n\n");
            }
            size += text.size();
            if (size > Most) {
                return;
            }
            out_ << text;
            (finding.level == FindingLevel::Error ? errors_ : notes_) -= places;
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
    std::map<Defect, std::size_t> places_; ///< That are not written yet.
};

} // namespace

void writeMarkdown(std::ostream& out, const CheckReport& report) {
    MarkdownReport(out, report).write();
}

} // namespace quillmark

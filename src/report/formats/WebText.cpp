#include "base/Printable.h"
#include "report/formats/TextParts.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace quillmark {

namespace {

constexpr std::size_t WidestPosition = 7;
constexpr std::size_t WidestReference = 40;

std::string position(const Place& at) {
    return std::to_string(at.line) + ":" + std::to_string(at.column);
}

class WebSummary {
public:
    WebSummary(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), results_(report.site()) {}

    void write() {
        writeTextHeading(out_, report_, printable(results_.top) + "  (web rules)", "file");
        writeFindings();
        writeTotals();
        writeAddresses();
        writeIgnored();
        writeUnused();
        writeDuplicates();
    }

private:
    std::string in(std::string_view style, const std::string& text) const {
        return styled(report_.color, style, text);
    }

    void writeFindings() {
        const bool sound = report_.errors() == 0 && report_.outcome == RunOutcome::Finished;
        out_ << in(sound ? Green : Red, findingCounts(report_)) << "\n";
        // The findings come page by page.
        std::vector<const Finding*> page;
        for (std::size_t i = 0; i < results_.findings.size(); ++i) {
            if (report_.isKnown(i)) {
                continue;
            }
            const Finding& finding = results_.findings[i];
            if (!page.empty() && page.front()->at.page != finding.at.page) {
                writePage(page);
                page.clear();
            }
            page.push_back(&finding);
        }
        writePage(page);
        out_ << "\n";
    }

    /// The references are padded to one column; a long one sticks out.
    void writePage(const std::vector<const Finding*>& findings) {
        if (findings.empty()) {
            return;
        }
        out_ << "  " << printable(report_.shownPage(findings.front()->at)) << "\n";
        std::size_t width = 0;
        for (const Finding* finding : findings) {
            const std::size_t length = printable(finding->reference).size();
            width = length <= WidestReference ? std::max(width, length) : width;
        }
        for (const Finding* finding : findings) {
            const bool error = finding->level == FindingLevel::Error;
            out_ << "    " << padded(position(finding->at), WidestPosition) << "  "
                 << in(error ? Red : Yellow, padded(printable(finding->reference), width)) << "  "
                 << (error ? "" : "note: ") << explanationOf(*finding);
            if (!finding->suggestion.empty()) {
                out_ << " (did you mean " << in(Bold, printable(finding->suggestion)) << "?)";
            }
            out_ << "\n";
        }
    }

    void writeTotals() {
        bool any = false;
        for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
            const KindTotal& total = report_.totals.at(kind);
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

    void writeAddresses() {
        const std::vector<AskedAddress>& all = results_.addresses;
        if (!all.empty()) {
            const auto sound = std::count_if(all.begin(), all.end(), [](const AskedAddress& asked) {
                return !asked.verdict.has_value();
            });
            out_ << counted(all.size(), "web address", "web addresses") << ", " << sound
                 << " of them sound\n";
        }
    }

    void writeIgnored() {
        std::array<std::size_t, IgnoredReasons> byReason{};
        for (const IgnoredReference& ignored : results_.ignored) {
            ++byReason.at(static_cast<std::size_t>(ignored.reason));
        }
        writeCount(out_, report_,
                   counted(results_.ignored.size(), "ignored reference", "ignored references"),
                   results_.ignored.empty() ? "" : "--list IgnoredReferences");
        for (std::size_t reason = 0; reason < IgnoredReasons; ++reason) {
            if (byReason.at(reason) > 0) {
                out_ << "  " << byReason.at(reason) << " "
                     << nameOf(static_cast<IgnoredReason>(reason)) << "\n";
            }
        }
    }

    void writeUnused() {
        if (report_.run->unusedPass != PassProgress::Done) {
            writeCount(out_, report_, "unused files not looked for", "");
            return;
        }
        const bool any = !results_.unused.empty();
        writeCount(out_, report_, counted(results_.unused.size(), "unused file", "unused files"),
                   any ? "--list UnusedList" : "");
        if (any) {
            out_ << in(Dim, "  Scripts are not read: files that only scripts name are among "
                            "them.")
                 << "\n";
        }
    }

    void writeDuplicates() {
        if (!results_.duplicatesKnown) {
            writeCount(out_, report_, "duplicates not looked for", "--duplicates");
            return;
        }
        const std::size_t files = countOfDuplicates(results_);
        writeCount(out_, report_, counted(files, "duplicate file", "duplicate files"),
                   files > 0 ? "--list DuplicateList" : "");
    }

    std::ostream& out_;
    const CheckReport& report_;
    const SiteResults& results_;
};

} // namespace

void writeWebText(std::ostream& out, const CheckReport& report) {
    WebSummary(out, report).write();
}

} // namespace quillmark

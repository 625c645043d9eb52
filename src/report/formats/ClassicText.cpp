#include "base/Printable.h"
#include "report/formats/TextParts.h"

#include <string>

namespace quillmark {

namespace {

class SummaryWriter {
public:
    SummaryWriter(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), site_(report.site()) {}

    void write() {
        writeTextHeading(out_, report_, printable(report_.start), "page");
        writeInvalid();
        writeOthers();
    }

private:
    /// Says what a pass found, "so far" if it was stopped, or "not looked for" if it never ran: "0
    /// unused files" would read like a sound site.
    static std::string found(PassProgress pass, std::size_t count, const std::string& one,
                             const std::string& many) {
        if (pass == PassProgress::Done) {
            return counted(count, one, many);
        }
        return count > 0 || pass == PassProgress::Stopped ? counted(count, one, many) + " so far"
                                                          : many + " not looked for";
    }

    /// Green only if all references were compared with the inventory.
    std::string_view styleOfInvalid(std::size_t count) const {
        if (count > 0) {
            return Red;
        }
        return report_.run->invalidPass == PassProgress::Done ? Green : Yellow;
    }

    void writeInvalid() {
        const std::size_t count = report_.errors();
        const std::string state = report_.hasBaseline ? "new " : "";
        out_ << styled(report_.color, styleOfInvalid(count),
                       found(report_.run->invalidPass, count, state + "invalid reference",
                             state + "invalid references") +
                           baselineCounts(report_))
             << "\n";
        const Finding* before = nullptr;
        for (std::size_t i = 0; i < site_.findings.size(); ++i) {
            const Finding& finding = site_.findings[i];
            if (report_.isKnown(i)) {
                continue;
            }
            if (before == nullptr || before->at.page != finding.at.page) {
                out_ << "  " << printable(report_.shownPage(finding.at)) << "\n";
            }
            before = &finding;
            out_ << "      "
                 << styled(report_.color, Red, printable(report_.shownPath(finding.target)))
                 << "\n";
        }
        out_ << "\n";
    }

    void writeOthers() {
        const std::size_t unused = site_.unused.size();
        writeCount(out_, report_,
                   counted(site_.ignored.size(), "ignored reference", "ignored references"),
                   site_.ignored.empty() ? "" : "--list IgnoredReferences");
        writeCount(out_, report_,
                   found(report_.run->unusedPass, unused, "unused file", "unused files"),
                   unused > 0 ? "--list UnusedList" : "");
        if (report_.settings->profile.CHECK_DUPES == 0) {
            writeCount(out_, report_, "duplicates not looked for", "--duplicates");
            return;
        }
        const std::size_t duplicates = countOfDuplicates(site_);
        writeCount(
            out_, report_,
            found(report_.run->duplicatesPass, duplicates, "duplicate file", "duplicate files"),
            duplicates > 0 ? "--list DuplicateList" : "");
    }

    std::ostream& out_;
    const CheckReport& report_;
    const SiteResults& site_;
};

} // namespace

void writeClassicText(std::ostream& out, const CheckReport& report) {
    SummaryWriter(out, report).write();
}

} // namespace quillmark

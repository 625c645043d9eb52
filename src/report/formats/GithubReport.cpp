#include "base/Printable.h"
#include "report/formats/Formats.h"

namespace quillmark {

namespace {

/// The text as a workflow command may hold it: without line ends, and with each "%" escaped.
std::string message(std::string_view bytes) {
    std::string result;
    for (const char c : printable(bytes)) {
        c == '%' ? result += "%25" : result += c;
    }
    return result;
}

/// The same for a property, which would end at a "," or ":".
std::string property(std::string_view bytes) {
    std::string result;
    for (const char c : message(bytes)) {
        if (c == ':') {
            result += "%3A";
        } else if (c == ',') {
            result += "%2C";
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace

void writeGithub(std::ostream& out, const CheckReport& report) {
    const SiteResults& site = report.site();
    for (std::size_t i = 0; i < site.findings.size(); ++i) {
        if (report.isKnown(i)) {
            continue;
        }
        const Finding& finding = site.findings[i];
        out << (finding.level == FindingLevel::Error ? "::error" : "::notice")
            << " file=" << property(report.shownPage(finding.at));
        if (finding.at.line > 0) {
            out << ",line=" << finding.at.line << ",col=" << finding.at.column;
        }
        out << ",title=" << nameOf(finding.kind) << "::" << message(finding.reference) << ": "
            << message(messageOf(finding)) << "\n";
    }
    if (report.outcome != RunOutcome::Finished) {
        out << "::error title=Quillmark::The run "
            << (report.outcome == RunOutcome::Aborted ? "was aborted" : "failed")
            << ": these are the results so far.\n";
    }
}

} // namespace quillmark

#include "base/Printable.h"
#include "report/formats/Formats.h"

#include <string>
#include <vector>

namespace quillmark {

namespace {

/// Whether the text begins with U+FFFE or U+FFFF, which are not control characters but which XML
/// does not allow either (XML 1.0, production 2).
bool isNoXmlCharacter(std::string_view text) {
    return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

/// The text for an attribute. Characters that XML cannot hold show as a terminal shows them.
std::string xml(std::string_view bytes) {
    const std::string text = printable(bytes);
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\xEF':
            if (isNoXmlCharacter(std::string_view(text).substr(i))) {
                result += "\xEF\xBF\xBD";
                i += 2;
                break;
            }
            [[fallthrough]];
        default:
            result += text[i];
        }
    }
    return result;
}

/// The totals of one page's suite, or of all suites.
struct Totals {
    std::size_t tests = 0;
    std::size_t failures = 0;
    std::size_t skipped = 0;

    void add(const Totals& more) {
        tests += more.tests;
        failures += more.failures;
        skipped += more.skipped;
    }
};

using PageFindings = std::vector<std::vector<const Finding*>>;

PageFindings newFindings(const CheckReport& report) {
    const SiteResults& site = report.site();
    PageFindings pages(site.pages.size());
    for (std::size_t i = 0; i < site.findings.size(); ++i) {
        if (!report.isKnown(i)) {
            pages[site.findings[i].at.page].push_back(&site.findings[i]);
        }
    }
    return pages;
}

Totals totalsOf(const std::vector<const Finding*>& findings) {
    Totals totals;
    // A page without findings is one passed test.
    totals.tests = findings.empty() ? 1 : findings.size();
    for (const Finding* finding : findings) {
        ++(finding->level == FindingLevel::Error ? totals.failures : totals.skipped);
    }
    return totals;
}

std::ostream& operator<<(std::ostream& out, const Totals& totals) {
    return out << "tests=\"" << totals.tests << "\" failures=\"" << totals.failures
               << "\" errors=\"0\" skipped=\"" << totals.skipped << "\"";
}

void writeCase(std::ostream& out, const std::string& page, const Finding& finding) {
    const Place& at = finding.at;
    const std::string place =
        at.line == 0 ? "" : std::to_string(at.line) + ":" + std::to_string(at.column) + " ";
    out << "    <testcase classname=\"" << page << "\" name=\"" << place << xml(finding.reference)
        << "\" file=\"" << page << "\"";
    if (at.line > 0) {
        out << " line=\"" << at.line << "\"";
    }
    const std::string message = xml(messageOf(finding));
    if (finding.level == FindingLevel::Note) {
        out << ">\n      <skipped message=\"note: " << message << "\"/>\n    </testcase>\n";
        return;
    }
    out << ">\n      <failure type=\"" << nameOf(finding.kind) << "\" message=\"" << message
        << "\">" << page << (place.empty() ? "" : ":" + place) << xml(finding.reference) << ": "
        << message << "</failure>\n    </testcase>\n";
}

void writePage(std::ostream& out, const std::string& page,
               const std::vector<const Finding*>& findings) {
    out << "  <testsuite name=\"" << page << "\" " << totalsOf(findings) << ">\n";
    for (const Finding* finding : findings) {
        writeCase(out, page, *finding);
    }
    if (findings.empty()) {
        out << "    <testcase classname=\"" << page << "\" name=\"references\"/>\n";
    }
    out << "  </testsuite>\n";
}

/// A run that ended early must not look like passed tests.
void writeUnfinished(std::ostream& out, const CheckReport& report) {
    out << "  <testsuite name=\"Quillmark\" tests=\"1\" failures=\"0\" errors=\"1\" "
           "skipped=\"0\">\n    <testcase classname=\"Quillmark\" name=\"check\">\n      "
           "<error message=\"the run "
        << (report.outcome == RunOutcome::Aborted ? "was aborted" : "failed")
        << "\"/>\n    </testcase>\n  </testsuite>\n";
}

} // namespace

void writeJunit(std::ostream& out, const CheckReport& report) {
    const PageFindings pages = newFindings(report);
    Totals totals;
    for (const auto& findings : pages) {
        totals.add(totalsOf(findings));
    }
    const bool finished = report.outcome == RunOutcome::Finished;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"Quillmark\" tests=\""
        << totals.tests + (finished ? 0 : 1) << "\" failures=\"" << totals.failures
        << "\" errors=\"" << (finished ? 0 : 1) << "\" skipped=\"" << totals.skipped << "\">\n";
    for (std::size_t page = 0; page < pages.size(); ++page) {
        writePage(out,
                  xml(report.shownPath(report.site().pagePath(static_cast<std::uint32_t>(page)))),
                  pages[page]);
    }
    if (!finished) {
        writeUnfinished(out, report);
    }
    out << "</testsuites>\n";
}

} // namespace quillmark

#include "base/Printable.h"
#include "report/formats/Formats.h"

namespace quillmark {

namespace {

/// A cell in quotes (RFC 4180). A spreadsheet would run what looks like a formula, so an apostrophe
/// before it turns it into text.
std::string cell(std::string_view bytes) {
    const std::string text = printable(bytes);
    std::string result = "\"";
    if (!text.empty() && std::string_view("=+-@").find(text[0]) != std::string_view::npos) {
        result += '\'';
    }
    for (const char c : text) {
        result.append(c == '"' ? 2 : 1, c);
    }
    return result + "\"";
}

/// An empty cell for 0, which stands for an unknown line or column.
std::string number(std::uint32_t value) {
    return value == 0 ? "" : std::to_string(value);
}

} // namespace

void writeCsv(std::ostream& out, const CheckReport& report) {
    const SiteResults& site = report.site();
    out << "level,kind,page,line,column,element,attribute,reference,target,explanation,suggestion,"
           "known\r\n";
    for (std::size_t i = 0; i < site.findings.size(); ++i) {
        const Finding& finding = site.findings[i];
        out << nameOf(finding.level) << ',' << nameOf(finding.kind) << ','
            << cell(report.shownPage(finding.at)) << ',' << number(finding.at.line) << ','
            << number(finding.at.column) << ',' << cell(finding.at.element) << ','
            << cell(finding.at.attribute) << ',' << cell(finding.reference) << ','
            << cell(report.shownPath(finding.target)) << ',' << cell(explanationOf(finding)) << ','
            << cell(finding.suggestion) << ',' << (report.isKnown(i) ? "yes" : "no") << "\r\n";
    }
}

} // namespace quillmark

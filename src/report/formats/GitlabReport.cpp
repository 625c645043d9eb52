#include "report/FindingIdentity.h"
#include "report/JsonText.h"
#include "report/formats/Formats.h"

#include <algorithm>

namespace quillmark {

void writeGitlab(std::ostream& out, const CheckReport& report) {
    const SiteResults& site = report.site();
    const std::vector<std::string> names = fingerprints(site);
    out << "[";
    std::string_view separator = "\n  ";
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (report.isKnown(i)) {
            continue;
        }
        const Finding& finding = site.findings[i];
        const std::string text = std::string(finding.reference) + ": " + messageOf(finding);
        out << separator << "{\"description\": " << jsonText(text)
            << ", \"check_name\": " << jsonText(nameOf(finding.kind))
            << ", \"fingerprint\": " << jsonText(names[i]) << ", \"severity\": "
            << (finding.level == FindingLevel::Error ? "\"major\"" : "\"info\"")
            << ", \"location\": {\"path\": "
            << jsonText(report.shownPage(finding.at))
            // GitLab needs a line, and the classic rules know none.
            << ", \"lines\": {\"begin\": " << std::max(finding.at.line, 1U) << "}}}";
        separator = ",\n  ";
    }
    out << "\n]\n";
}

} // namespace quillmark

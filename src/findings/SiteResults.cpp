#include "findings/SiteResults.h"

#include <unordered_set>

namespace quillmark {

std::size_t SiteResults::errors() const {
    std::size_t count = 0;
    for (const KindTotal& total : totals) {
        count += total.errors;
    }
    return count;
}

void countFindings(SiteResults& results) {
    std::array<std::unordered_set<std::string_view>, FindingKinds> targets;
    results.totals = {};
    for (const Finding& finding : results.findings) {
        const auto kind = static_cast<std::size_t>(finding.kind);
        KindTotal& total = results.totals.at(kind);
        ++(finding.level == FindingLevel::Error ? total.errors : total.notes);
        targets.at(kind).insert(finding.target.empty() ? finding.reference : finding.target);
    }
    for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
        results.totals.at(kind).targets = static_cast<std::uint32_t>(targets.at(kind).size());
    }
}

} // namespace quillmark

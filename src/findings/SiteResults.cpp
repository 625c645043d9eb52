#include "findings/SiteResults.h"

#include <unordered_set>

namespace quillmark {

std::size_t totalErrors(const KindTotals& totals) {
    std::size_t count = 0;
    for (const KindTotal& total : totals) {
        count += total.errors;
    }
    return count;
}

KindTotals countFindings(const std::vector<Finding>& findings, const std::vector<bool>& known) {
    std::array<std::unordered_set<std::string_view>, FindingKinds> targets;
    KindTotals totals{};
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (i < known.size() && known[i]) {
            continue;
        }
        const Finding& finding = findings[i];
        const auto kind = static_cast<std::size_t>(finding.kind);
        KindTotal& total = totals.at(kind);
        ++(finding.level == FindingLevel::Error ? total.errors : total.notes);
        targets.at(kind).insert(finding.targetOrReference());
    }
    for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
        totals.at(kind).targets = static_cast<std::uint32_t>(targets.at(kind).size());
    }
    return totals;
}

} // namespace quillmark

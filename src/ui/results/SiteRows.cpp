#include "ui/results/SiteRows.h"

#include "store/ResultLists.h"

#include <algorithm>

namespace quillmark {

namespace {

/// The page of a reference by its index: pages only know their first one.
std::uint32_t pageOfReference(const SiteResults& results, std::size_t index) {
    const auto behind = std::upper_bound(results.pages.begin(), results.pages.end(), index,
                                         [](std::size_t reference, const SitePage& page) {
                                             return reference < page.firstReference;
                                         });
    return static_cast<std::uint32_t>(behind - results.pages.begin() - 1);
}

std::size_t countOfReferences(const SiteResults& results) {
    return results.pages.empty() ? 0 : results.references.size() + 1;
}

std::string_view reference(const SiteResults& results, std::size_t index) {
    return index == 0 ? results.pagePath(0) : results.path(results.references[index - 1].target);
}

SiteRow rowOfReference(const SiteResults& results, std::size_t index) {
    SiteRow row;
    row.reference = row.path = reference(results, index);
    // No page refers to the start page, which has the first row.
    if (index == 0) {
        row.from = BaseFile;
    } else {
        row.from = results.pagePath(pageOfReference(results, index - 1));
        row.line = results.references[index - 1].line;
    }
    return row;
}

std::size_t countOfFindings(const SiteResults& results) {
    return results.findings.size();
}

std::string_view findingReference(const SiteResults& results, std::size_t index) {
    return results.findings[index].targetOrReference();
}

SiteRow rowOfFinding(const SiteResults& results, std::size_t index) {
    const Finding& finding = results.findings[index];
    const bool part = finding.kind == FindingKind::FragmentMissing;
    SiteRow row;
    row.reference = findingReference(results, index);
    row.path = part ? finding.target.substr(0, finding.target.find('#')) : finding.target;
    row.from = results.pagePath(finding.at.page);
    row.line = finding.at.line;
    row.why = explanationOf(finding);
    row.note = finding.level == FindingLevel::Note;
    row.suggestion = finding.suggestion;
    return row;
}

std::size_t countOfIgnored(const SiteResults& results) {
    return results.ignored.size();
}

std::string_view ignoredReference(const SiteResults& results, std::size_t index) {
    return results.ignored[index].reference;
}

SiteRow rowOfIgnored(const SiteResults& results, std::size_t index) {
    const IgnoredReference& ignored = results.ignored[index];
    SiteRow row;
    row.reference = ignored.reference;
    row.from = results.pagePath(ignored.at.page);
    row.line = ignored.at.line;
    row.why = nameOf(ignored.reason);
    return row;
}

} // namespace

const SiteRows ReferenceRows = {countOfReferences, rowOfReference, reference};
const SiteRows FindingRows = {countOfFindings, rowOfFinding, findingReference};
const SiteRows IgnoredRows = {countOfIgnored, rowOfIgnored, ignoredReference};

} // namespace quillmark

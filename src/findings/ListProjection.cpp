#include "findings/ListProjection.h"

#include "base/Numbers.h"

#include <string>

namespace quillmark {

namespace {

void projectInventory(const SiteResults& results, ResultLists& lists) {
    for (const std::string_view folder : results.folders) {
        lists.DirectoryList.AppendView(folder);
    }
    for (const SiteFile& file : results.files) {
        lists.FileList.AppendView(file.path);
        std::string size(file.path);
        size += zeroPadded(static_cast<std::int64_t>(file.size), SizeDigits);
        lists.FileSizes.Append(size);
    }
}

void projectReferences(const SiteResults& results, ResultLists& lists) {
    if (results.pages.empty()) {
        return;
    }
    // The start page comes first, as in a check with the classic rules.
    lists.ReferenceList.AppendView(results.pagePath(0));
    lists.ReferenceListFrom.AppendView(BaseFile);
    for (std::uint32_t page = 0; page < results.pages.size(); ++page) {
        const std::string_view from = results.pagePath(page);
        lists.GetFileList.AppendView(from);
        const std::size_t end = page + 1 < results.pages.size()
                                    ? results.pages[page + 1].firstReference
                                    : results.references.size();
        for (std::size_t i = results.pages[page].firstReference; i < end; ++i) {
            lists.ReferenceList.AppendView(results.path(results.references[i].target));
            lists.ReferenceListFrom.AppendView(from);
        }
    }
}

void projectFindings(const SiteResults& results, ResultLists& lists) {
    for (const Finding& finding : results.findings) {
        // The lists have no place for notes.
        if (finding.level == FindingLevel::Error) {
            lists.InvalidReferences.AppendView(finding.targetOrReference());
            lists.InvalidReferencesFrom.AppendView(results.pagePath(finding.at.page));
        }
    }
    for (const IgnoredReference& ignored : results.ignored) {
        lists.IgnoredReferences.AppendView(ignored.reference);
        lists.IgnoredReferencesFrom.AppendView(results.pagePath(ignored.at.page));
    }
}

} // namespace

void projectLists(const SiteResults& results, ResultLists& lists) {
    lists.ClearForRun();
    projectInventory(results, lists);
    projectReferences(results, lists);
    projectFindings(results, lists);
    for (const std::uint32_t file : results.unused) {
        lists.UnusedList.AppendView(results.files[file].path);
    }
    for (const auto& group : results.duplicates) {
        for (const std::uint32_t file : group) {
            lists.DuplicateList.AppendView(results.files[file].path);
        }
    }
}

} // namespace quillmark

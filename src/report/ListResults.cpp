#include "report/ListResults.h"

#include "base/UpperCase.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

namespace quillmark {

namespace {

std::string_view folderOf(std::string_view path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// A line of FileSizes is the path followed by the size.
std::uint64_t sizeIn(std::string_view line, std::size_t pathLength) {
    std::uint64_t size = 0;
    const std::string_view digits = line.substr(pathLength);
    std::from_chars(digits.data(), digits.data() + digits.size(), size);
    return size;
}

/// Sorts the findings by page. The pages keep the order of their first findings, and the findings
/// of a page their own order.
void bringTogether(std::vector<Finding>& findings) {
    std::unordered_map<std::uint32_t, std::size_t> ranks;
    for (const Finding& finding : findings) {
        ranks.emplace(finding.at.page, ranks.size());
    }
    std::stable_sort(findings.begin(), findings.end(), [&](const Finding& a, const Finding& b) {
        return ranks.at(a.at.page) < ranks.at(b.at.page);
    });
}

/// Builds the results list by list. Pages and targets are numbered as they first occur.
class ListReader {
public:
    ListReader(const ResultLists& lists, bool ignoreCase)
        : lists_(lists), ignoreCase_(ignoreCase) {}

    SiteResults read(std::string_view start) {
        results_.top = results_.texts.keep(folderOf(start));
        readInventory();
        readPages();
        readReferences();
        readUnused();
        readDuplicates();
        results_.totals = countFindings(results_.findings);
        return std::move(results_);
    }

private:
    void readInventory() {
        for (int i = 0; i < lists_.DirectoryList.Count(); ++i) {
            results_.folders.push_back(lists_.DirectoryList.Line(i));
        }
        for (int i = 0; i < lists_.FileList.Count(); ++i) {
            SiteFile file;
            file.path = lists_.FileList.Line(i);
            // readUnused() takes it back where it does not hold.
            file.used = true;
            if (i < lists_.FileSizes.Count()) {
                file.size = sizeIn(lists_.FileSizes.Line(i), file.path.size());
            }
            targets_.emplace(file.path, static_cast<std::uint32_t>(results_.files.size()));
            results_.files.push_back(file);
        }
    }

    void readPages() {
        for (int i = 0; i < lists_.GetFileList.Count(); ++i) {
            pageOf(lists_.GetFileList.Line(i));
        }
    }

    void readReferences() {
        for (int i = 0; i < lists_.InvalidReferences.Count(); ++i) {
            Finding finding;
            finding.at = placeOn(lists_.InvalidReferencesFrom.Line(i));
            finding.target = lists_.InvalidReferences.Line(i);
            finding.reference = results_.fromTop(finding.target);
            results_.findings.push_back(finding);
        }
        bringTogether(results_.findings);
        for (int i = 0; i < lists_.IgnoredReferences.Count(); ++i) {
            IgnoredReference ignored;
            ignored.reason = IgnoredReason::ClassicRules;
            ignored.at = placeOn(lists_.IgnoredReferencesFrom.Line(i));
            ignored.reference = lists_.IgnoredReferences.Line(i);
            results_.ignored.push_back(ignored);
        }
    }

    void readUnused() {
        for (int i = 0; i < lists_.UnusedList.Count(); ++i) {
            const std::uint32_t file = targetOf(lists_.UnusedList.Line(i));
            if (file < results_.files.size()) {
                results_.files[file].used = false;
                results_.unused.push_back(file);
            }
        }
    }

    /// Files of one name and one size are duplicates of each other.
    void readDuplicates() {
        std::map<std::pair<std::string, std::uint64_t>, std::size_t> groups;
        for (int i = 0; i < lists_.DuplicateList.Count(); ++i) {
            const std::string_view path = lists_.DuplicateList.Line(i);
            const std::uint32_t file = targetOf(path);
            if (file >= results_.files.size()) {
                continue;
            }
            const std::string_view name = path.substr(folderOf(path).size());
            const auto group = groups.try_emplace(
                {ignoreCase_ ? upperCase(name) : std::string(name), results_.files[file].size},
                results_.duplicates.size());
            if (group.second) {
                results_.duplicates.emplace_back();
            }
            results_.duplicates[group.first->second].push_back(file);
        }
    }

    Place placeOn(std::string_view page) {
        Place place;
        place.page = pageOf(page);
        // The classic rules know no lines.
        place.line = place.column = 0;
        return place;
    }

    std::uint32_t pageOf(std::string_view path) {
        const auto page = pages_.emplace(path, static_cast<std::uint32_t>(results_.pages.size()));
        if (page.second) {
            results_.pages.push_back({targetOf(path), 0});
        }
        return page.first->second;
    }

    std::uint32_t targetOf(std::string_view path) {
        const std::size_t next = results_.files.size() + results_.otherTargets.size();
        const auto target = targets_.emplace(path, static_cast<std::uint32_t>(next));
        if (target.second) {
            results_.otherTargets.push_back(path);
        }
        return target.first->second;
    }

    const ResultLists& lists_;
    bool ignoreCase_;
    SiteResults results_;
    std::unordered_map<std::string_view, std::uint32_t> targets_;
    std::unordered_map<std::string_view, std::uint32_t> pages_;
};

} // namespace

SiteResults resultsOfLists(const ResultLists& lists, std::string_view start, bool ignoreCase) {
    return ListReader(lists, ignoreCase).read(start);
}

} // namespace quillmark

#include "web/verdict/Fragments.h"

#include "base/Failure.h"
#include "web/address/ReferenceText.h"

#include <algorithm>
#include <unordered_map>

namespace quillmark::web {

namespace {

/// The reference up to its "#", and what follows it without ":~:" and the blanks at the end.
std::pair<std::string_view, std::string_view> split(std::string_view reference) {
    while (!reference.empty() && isBlankOrControl(reference.back())) {
        reference.remove_suffix(1);
    }
    const std::size_t hash = std::min(reference.find('#'), reference.size());
    const std::string_view behind = reference.substr(std::min(hash + 1, reference.size()));
    return {reference.substr(0, hash), behind.substr(0, behind.find(":~:"))};
}

} // namespace

void Fragments::perform(StopToken& stop) {
    std::vector<OpenFragment> wrong;
    for (const OpenFragment& open : found_.fragments) {
        if (stop.stopped()) {
            return;
        }
        if (!found_.isMissing(open)) {
            continue;
        }
        if (!wrong.empty() && wrong.back().page != open.page) {
            describe(wrong.back().page, wrong);
            wrong.clear();
        }
        wrong.push_back(open);
    }
    if (!wrong.empty()) {
        describe(wrong.back().page, wrong);
    }
    for (const auto& target : byTarget_) {
        if (stop.stopped()) {
            return;
        }
        suggest(target.first, target.second);
    }
}

bool Fragments::read(std::uint32_t page) {
    try {
        const std::string_view bytes = source_.read(std::string(results_.pagePath(page)), bytes_);
        readPage(bytes, found_.notes[page].kind, content_);
        return true;
    } catch (const Failure& failure) {
        found_.troubles.push_back("Cannot read " + std::string(results_.pagePath(page)) +
                                  " again: " + failure.description());
        return false;
    }
}

void Fragments::describe(std::uint32_t page, const std::vector<OpenFragment>& wrong) {
    if (!read(page)) {
        return;
    }
    for (const OpenFragment& open : wrong) {
        describeOne(open, content_);
    }
}

void Fragments::describeOne(const OpenFragment& open, const PageContent& content) {
    // The page is read for the second time, and somebody may have edited it in between.
    if (open.ordinal >= content.references.size()) {
        found_.troubles.push_back(std::string(results_.pagePath(open.page)) +
                                  " was changed while it was checked");
        return;
    }
    const PageReference& reference = content.references[open.ordinal];
    const std::string_view fragment = split(reference.text).second;
    const PlaceName name = placeName(reference.place);
    Finding finding;
    finding.kind = FindingKind::FragmentMissing;
    finding.level = isRoute(fragment) ? FindingLevel::Note : FindingLevel::Error;
    finding.at = {open.page, reference.at.line, reference.at.column, name.element, name.attribute};
    finding.reference = results_.texts.keep(reference.text);
    finding.target = results_.texts.keep(
        std::string(results_.path(open.target)).append(1, '#').append(fragment));
    byTarget_[open.target].push_back(results_.findings.size());
    results_.findings.push_back(finding);
}

/// Suggests the nearest id of the target for each finding; each fragment is looked for once.
void Fragments::suggest(std::uint32_t target, const std::vector<std::size_t>& findings) {
    if (!read(found_.pageOfTarget[target])) {
        return;
    }
    std::unordered_map<std::string_view, std::optional<std::size_t>> known;
    for (const std::size_t index : findings) {
        Finding& finding = results_.findings[index];
        if (finding.level == FindingLevel::Note) {
            continue; // An address for a script: no id of the page was meant.
        }
        const bool map = finding.at.attribute == "usemap";
        const auto& names = map ? content_.mapNames : content_.ids;
        const auto [before, fragment] = split(finding.reference);
        const auto place = known.try_emplace(fragment, std::nullopt);
        if (place.second) {
            place.first->second = near_.nearest(fragment, names);
        }
        if (place.first->second && *place.first->second < names.size()) {
            finding.suggestion = results_.texts.keep(
                std::string(before).append(1, '#').append(names[*place.first->second]));
        }
    }
}

} // namespace quillmark::web

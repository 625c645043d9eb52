#include "web/discovery/Discovery.h"

#include <string>
#include <utility>

namespace quillmark::web {

namespace {

using Target = JudgedReference::Target;

bool isFile(Target target) {
    return target == Target::File || target == Target::FileBehindLink || target == Target::OwnPage;
}

FindingKind kindOf(Target target) {
    switch (target) {
    case Target::Folder:
        return FindingKind::FolderWithoutIndex;
    case Target::DanglingLink:
        return FindingKind::DanglingLink;
    case Target::ThisComputer:
        return FindingKind::ThisComputerOnly;
    case Target::NoAddress:
        return FindingKind::NoAddress;
    default:
        return FindingKind::Missing;
    }
}

} // namespace

Discovery::Discovery(SiteResults& results, const Inventory& inventory, const PageKinds& kinds,
                     SiteSource& source, PageQueue& queue, Discovered& found,
                     const ReadingProgress& progress)
    : results_(results), inventory_(inventory), kinds_(kinds), source_(source), queue_(queue),
      found_(found), progress_(progress) {
    found_.pageOfTarget.assign(results.files.size(), NoTarget);
    kindOfTarget_.reserve(results.files.size());
    for (const SiteFile& file : results.files) {
        kindOfTarget_.push_back(kinds.byName(file.path));
    }
}

void Discovery::addPage(std::uint32_t file, PageKind otherwise) {
    if (found_.pageOfTarget[file] == NoTarget) {
        enqueue(file, kindOfTarget_[file].value_or(otherwise));
    }
}

void Discovery::readAll(StopToken& stop) {
    while (taken_ < results_.pages.size() && !stop.stopped()) {
        take(taken_, queue_.take());
        ++taken_;
        progress_.read = static_cast<int>(taken_);
    }
    // The pages that still waited when the run was stopped were not read.
    results_.pages.resize(taken_);
    found_.notes.resize(taken_);
}

void Discovery::take(std::uint32_t page, const JudgedPage& judged) {
    results_.pages[page].firstReference = static_cast<std::uint32_t>(results_.references.size());
    if (!judged.trouble.empty()) {
        found_.troubles.push_back("Cannot read " + std::string(results_.pagePath(page)) + ": " +
                                  judged.trouble);
        return;
    }
    PageNotes& notes = found_.notes[page];
    notes.read = true;
    notes.ids = judged.ids;
    if (judged.base) {
        found_.bases.emplace(page, *judged.base);
    }
    for (const JudgedReference& reference : judged.references) {
        file(page, judged, reference);
    }
}

void Discovery::file(std::uint32_t page, const JudgedPage& judged,
                     const JudgedReference& reference) {
    if (isFile(reference.target)) {
        fileTarget(page, reference, targetOf(page, judged, reference));
        return;
    }
    const PlaceName name = placeName(reference.place);
    const Place at{page, reference.at.line, reference.at.column, name.element, name.attribute};
    if (reference.target == Target::Ignored) {
        addIgnored(judged, reference, at);
        return;
    }
    const std::uint32_t target = targetOf(page, judged, reference);
    if (target != NoTarget) {
        results_.references.push_back({target, at.line, at.column});
    }
    if (reference.target != Target::Elsewhere) {
        addFinding(judged, reference, at, target);
    }
}

void Discovery::fileTarget(std::uint32_t page, const JudgedReference& reference,
                           std::uint32_t target) {
    // A page is not in use because it refers to itself.
    if (target != results_.pages[page].target) {
        markUsed(reference.file);
        reach(target, reference.file, reference.role);
    }
    results_.references.push_back({target, reference.at.line, reference.at.column});
    if (reference.fragment == JudgedReference::Fragment::None) {
        return;
    }
    const OpenFragment open{page,
                            reference.ordinal,
                            target,
                            reference.fragment == JudgedReference::Fragment::Missing,
                            reference.role == Role::SvgUse,
                            reference.rawHash,
                            reference.decodedHash};
    // Most fragments lead to pages that were read before: only the doubtful ones are kept.
    if (found_.readPage(target) == nullptr || found_.isMissing(open)) {
        found_.fragments.push_back(open);
    }
}

void Discovery::addIgnored(const JudgedPage& judged, const JudgedReference& reference,
                           const Place& at) {
    results_.ignored.push_back({reference.reason, at, interned(judged.text(reference.written))});
}

void Discovery::addFinding(const JudgedPage& judged, const JudgedReference& reference,
                           const Place& at, std::uint32_t target) {
    found_.findings.push_back({kindOf(reference.target), at,
                               interned(judged.text(reference.written)), target, reference.role,
                               reference.fromTop});
}

std::uint32_t Discovery::targetOf(std::uint32_t page, const JudgedPage& judged,
                                  const JudgedReference& reference) {
    switch (reference.target) {
    case Target::OwnPage:
        return results_.pages[page].target;
    case Target::File:
    case Target::DanglingLink:
        return reference.file;
    case Target::ThisComputer:
    case Target::NoAddress:
    case Target::Ignored:
        return NoTarget;
    default:
        return otherTarget(judged.text(reference.path));
    }
}

/// The number of a target that is not a file under its own path. Numbers go on behind the files'.
std::uint32_t Discovery::otherTarget(std::string_view path) {
    if (const auto known = otherTargets_.find(path); known != otherTargets_.end()) {
        return known->second;
    }
    const auto number =
        static_cast<std::uint32_t>(results_.files.size() + results_.otherTargets.size());
    const std::string_view full = results_.texts.keep(std::string(results_.top).append(path));
    results_.otherTargets.push_back(full);
    found_.pageOfTarget.push_back(NoTarget);
    kindOfTarget_.push_back(kinds_.byName(full));
    otherTargets_.emplace(full.substr(results_.top.size()), number);
    return number;
}

void Discovery::markUsed(std::uint32_t file) {
    if (!results_.files[file].used) {
        results_.files[file].used = true;
        results_.files[inventory_.realFile(file)].used = true;
    }
}

/// Queues a target that is to be read, by its name or by what refers to it. Each is read once, in
/// the way that the first reference asked for.
void Discovery::reach(std::uint32_t target, std::uint32_t file, Role role) {
    if (found_.pageOfTarget[target] != NoTarget) {
        return;
    }
    const auto kind = kindOfTarget_[target] ? kindOfTarget_[target] : PageKinds::byRole(role);
    if (kind && inventory_.isInSite(file)) {
        enqueue(target, *kind);
    }
}

void Discovery::enqueue(std::uint32_t target, PageKind kind) {
    found_.pageOfTarget[target] = static_cast<std::uint32_t>(results_.pages.size());
    found_.notes.push_back({kind, false, {}});
    results_.pages.push_back({target, 0});
    const std::string_view full = results_.path(target);
    source_.expectRead(std::string(full));
    queue_.add({std::string(full), std::string(results_.fromTop(full)), kind});
    progress_.known = static_cast<int>(results_.pages.size());
}

/// The text, kept once however many references have it: a site repeats its menus on every page.
std::string_view Discovery::interned(std::string_view text) {
    if (const auto known = texts_.find(text); known != texts_.end()) {
        return *known;
    }
    return *texts_.insert(results_.texts.keep(text)).first;
}

} // namespace quillmark::web

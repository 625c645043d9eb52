#include "web/judge/PageJudge.h"

#include "base/Failure.h"
#include "base/Hash.h"
#include "web/address/PercentCoding.h"
#include "web/address/ReferenceText.h"

#include <algorithm>
#include <memory>
#include <string_view>

namespace quillmark::web {

namespace {

using Target = JudgedReference::Target;
using What = Found::What;

JudgedReference::Text keep(std::string_view text, JudgedPage& page) {
    const JudgedReference::Text part{static_cast<std::uint32_t>(page.texts.size()),
                                     static_cast<std::uint32_t>(text.size())};
    page.texts += text;
    return part;
}

/// Keeps a reference for the user to read, cut if it is very long.
JudgedReference::Text keepWritten(std::string_view text, JudgedPage& page) {
    if (text.size() <= LongestShown) {
        return keep(text, page);
    }
    return keep(std::string(text.substr(0, LongestShown)) + "...", page);
}

IgnoredReason reasonFor(Leads leads) {
    switch (leads) {
    case Leads::AnotherSite:
        return IgnoredReason::AnotherSite;
    case Leads::AboveTop:
        return IgnoredReason::AboveTop;
    default:
        return IgnoredReason::OtherScheme;
    }
}

Target targetFor(const Found& found) {
    switch (found.what) {
    case What::File:
        return found.throughLink ? Target::FileBehindLink : Target::File;
    case What::DanglingLink:
        return Target::DanglingLink;
    case What::Folder:
        return Target::Folder;
    case What::Outside:
        return Target::Elsewhere;
    default:
        return Target::Missing;
    }
}

/// Whether a reference has blanks or control characters. Browsers take some of them out, so equal
/// bytes in front of the "#" are not enough to know where it leads.
bool hasBlanks(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isBlankOrControl);
}

bool contains(const std::vector<std::uint64_t>& sorted, std::uint64_t hash) {
    return std::binary_search(sorted.begin(), sorted.end(), hash);
}

} // namespace

void PageJudge::judge(const PageTask& task, JudgedPage& page) {
    page.clear();
    std::string_view bytes;
    try {
        bytes = context_.source.read(task.fullPath, bytes_);
    } catch (const Failure& failure) {
        page.trouble = failure.description();
        return;
    }
    readPage(bytes, task.kind, content_);
    base_ = context_.addresses.baseOf(task.path, content_.base);
    if (content_.base) {
        page.base = context_.addresses.inSite(base_);
    }
    hashIds(task.kind, page);
    recent_.clear();
    // "#part" alone names the page, unless a base href turns it into a reference elsewhere.
    if (!content_.base) {
        recent_.add({std::string_view(""), Target::OwnPage, 0, true, false});
    }
    for (std::uint32_t i = 0; i < content_.references.size(); ++i) {
        judgeReference(task, i, page);
    }
}

void PageJudge::hashIds(PageKind kind, JudgedPage& page) const {
    if (kind != PageKind::Html && kind != PageKind::Svg) {
        return;
    }
    page.ids.reserve(content_.ids.size());
    for (const std::string_view id : content_.ids) {
        page.ids.push_back(hashOf(id));
    }
    std::sort(page.ids.begin(), page.ids.end());
}

void PageJudge::judgeReference(const PageTask& task, std::uint32_t ordinal, JudgedPage& page) {
    const PageReference& reference = content_.references[ordinal];
    JudgedReference judged;
    judged.role = reference.role;
    judged.place = reference.place;
    judged.at = reference.at;
    judged.ordinal = ordinal;
    if (reference.role == Role::UseMap) {
        judgeUseMap(reference, judged, page);
    } else {
        judgeAddress(task, reference, judged, page);
    }
}

/// What follows the first "#" names a map of the page (WHATWG HTML, section 4.8.14). Browsers look
/// at the map's name only, but authors also write its id.
void PageJudge::judgeUseMap(const PageReference& reference, JudgedReference judged,
                            JudgedPage& page) {
    const std::size_t hash = reference.text.find('#');
    if (hash == std::string_view::npos) {
        return;
    }
    const std::string_view name = reference.text.substr(hash + 1);
    const bool there = std::find(content_.mapNames.begin(), content_.mapNames.end(), name) !=
                           content_.mapNames.end() ||
                       contains(page.ids, hashOf(name));
    judged.target = Target::OwnPage;
    judged.fragment = there ? JudgedReference::Fragment::None : JudgedReference::Fragment::Missing;
    page.references.push_back(judged);
}

void PageJudge::judgeAddress(const PageTask& task, const PageReference& reference,
                             JudgedReference judged, JudgedPage& page) {
    // Patterns look at the whole reference, so with patterns each one is judged by itself.
    if (context_.exclude.empty() && judgeRepeated(reference, judged, page)) {
        return;
    }
    context_.addresses.resolve(reference.text, base_, address_);
    if (judged.role == Role::UseOnly && address_.leads == Leads::AnotherSite) {
        context_.anyServer.resolve(reference.text, base_, address_);
    }
    judged.fromTop = address_.fromTop;
    switch (address_.leads) {
    case Leads::IntoSite:
        judgeTarget(task, reference, judged, page);
        return;
    case Leads::ThisComputer:
    case Leads::Nowhere:
        judged.target = address_.leads == Leads::Nowhere ? Target::NoAddress : Target::ThisComputer;
        judged.written = keepWritten(reference.text, page);
        if (judged.role != Role::UseOnly) {
            page.references.push_back(judged);
        }
        return;
    default:
        addIgnored(reasonFor(address_.leads), reference, judged, page);
    }
}

/// Judges a reference to a file that the page has named before. Returns false for any other.
bool PageJudge::judgeRepeated(const PageReference& reference, JudgedReference judged,
                              JudgedPage& page) {
    std::string_view text = reference.text;
    const auto fragment = cutFragment(text);
    const RecentTargets::Entry* const known = recent_.find(text);
    if (known == nullptr || reference.text.empty() || hasBlanks(fragment.value_or(""))) {
        return false;
    }
    judged.target = known->target;
    judged.file = known->file;
    judged.fromTop = known->fromTop;
    if (judged.role != Role::UseOnly) {
        judgeFragment(fragment, known->ownPage, judged, page);
    } else if (judged.target == Target::OwnPage) {
        return true;
    }
    page.references.push_back(judged);
    return true;
}

void PageJudge::judgeTarget(const PageTask& task, const PageReference& reference,
                            JudgedReference judged, JudgedPage& page) {
    path_ = address_.path;
    const Found found =
        address_.unreachable ? Found{What::Nothing, 0, false} : context_.targets.find(path_);
    judged.target = targetFor(found);
    judged.file = found.file;
    remember(reference.text, judged, path_ == task.path);
    const bool isFile = judged.target == Target::File || judged.target == Target::FileBehindLink;
    if (judged.target == Target::FileBehindLink || !isFile) {
        judged.path = keep(isFile ? path_ : address_.path, page);
    }
    if (isExcluded(reference)) {
        addIgnored(IgnoredReason::Excluded, reference, judged, page);
        judged.role = Role::UseOnly; // An excluded reference still uses its file.
    }
    if (judged.role == Role::UseOnly) {
        if (isFile) {
            page.references.push_back(judged);
        }
        return;
    }
    if (found.what == What::NotListed) {
        addIgnored(IgnoredReason::NotListed, reference, judged, page);
        return;
    }
    if (isFile) {
        judgeFragment(address_.fragment, path_ == task.path, judged, page);
    } else {
        judged.written = keepWritten(reference.text, page);
    }
    page.references.push_back(judged);
}

/// Remembers where a reference leads. Those with Role::UseOnly are left out: for them every server
/// counts as the site's own, so the same words may lead another reference elsewhere.
void PageJudge::remember(std::string_view reference, const JudgedReference& judged, bool ownPage) {
    static_cast<void>(cutFragment(reference));
    const bool repeats = judged.target == Target::File && judged.role != Role::UseOnly;
    if (repeats && !reference.empty() && !hasBlanks(reference)) {
        recent_.add({reference, judged.target, judged.file, ownPage, judged.fromTop});
    }
}

void PageJudge::judgeFragment(std::optional<std::string_view> written, bool ownPage,
                              JudgedReference& judged, const JudgedPage& page) {
    if (!written || written->empty()) {
        return;
    }
    const std::string_view fragment = *written;
    judged.rawHash = hashOf(fragment);
    judged.decodedHash = judged.rawHash;
    std::string decoded;
    if (fragment.find('%') != std::string_view::npos) {
        decoded = percentDecoded(fragment);
        judged.decodedHash = hashOf(decoded);
    }
    if (isTopOfPage(fragment) || isTopOfPage(decoded.empty() ? fragment : decoded)) {
        return;
    }
    if (!ownPage) {
        judged.fragment = JudgedReference::Fragment::Unknown;
    } else if (!contains(page.ids, judged.rawHash) && !contains(page.ids, judged.decodedHash)) {
        judged.fragment = JudgedReference::Fragment::Missing;
    }
}

bool PageJudge::isExcluded(const PageReference& reference) const {
    return !context_.exclude.empty() &&
           (context_.exclude.match(reference.text) || context_.exclude.match(address_.path));
}

void PageJudge::addIgnored(IgnoredReason reason, const PageReference& reference,
                           JudgedReference judged, JudgedPage& page) const {
    if (judged.role == Role::UseOnly) {
        return;
    }
    if (reason != IgnoredReason::Excluded && isExcluded(reference)) {
        reason = IgnoredReason::Excluded;
    }
    judged.target = Target::Ignored;
    judged.reason = reason;
    judged.written = keepWritten(reference.text, page);
    page.references.push_back(judged);
}

std::function<PageQueue::Work()> pageJudges(const JudgeContext& context) {
    return [&context]() -> PageQueue::Work {
        return [judge = std::make_shared<PageJudge>(context)](
                   const PageTask& task, JudgedPage& page) { judge->judge(task, page); };
    };
}

} // namespace quillmark::web

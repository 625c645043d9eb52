#include "web/links/LinkPage.h"

#include "web/address/PercentCoding.h"
#include "web/address/ReferenceText.h"
#include "web/page/PageContent.h"
#include "web/text/Ascii.h"
#include "web/verdict/NearNames.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillmark::web {

namespace {

/// In bytes. Several answers are in memory at once, so that one must not take it all.
constexpr std::size_t LongestPage = std::size_t{4} * 1024 * 1024;

std::optional<PageKind> kindOf(std::string_view contentType) {
    const std::string_view type = withoutOuterBlanks(contentType.substr(0, contentType.find(';')));
    if (equalIgnoringCase(type, "application/xhtml+xml")) {
        return PageKind::Xhtml;
    }
    return equalIgnoringCase(type, "text/html") ? std::optional(PageKind::Html) : std::nullopt;
}

/// Code hosts put a prefix before the ids in texts of their users; a script leads visitors there.
bool holds(const std::vector<std::string_view>& ids, const std::string& fragment) {
    return std::any_of(ids.begin(), ids.end(), [&fragment](std::string_view id) {
        return id == fragment || id == "user-content-" + fragment;
    });
}

} // namespace

bool LinkPage::isJudged(std::string_view fragment) {
    return !isTopOfPage(fragment) && !isTopOfPage(percentDecoded(fragment)) && !isRoute(fragment);
}

void LinkPage::want(std::string_view fragment) {
    if (find(fragment) == nullptr) {
        wanted_.push_back({std::string(fragment), false, {}});
    }
}

void LinkPage::begin() {
    page_.clear();
}

bool LinkPage::take(std::string_view bytes) {
    page_ += bytes;
    return page_.size() <= LongestPage;
}

void LinkPage::end(std::string_view contentType) {
    const std::string page = std::exchange(page_, {});
    const auto kind = kindOf(contentType);
    if (!kind || page.size() > LongestPage) {
        return;
    }
    PageContent content;
    readPage(page, *kind, content);
    NearNames near;
    for (Wanted& wanted : wanted_) {
        wanted.missing = !holds(content.ids, wanted.fragment) &&
                         !holds(content.ids, percentDecoded(wanted.fragment));
        const auto similar =
            wanted.missing ? near.nearest(wanted.fragment, content.ids) : std::nullopt;
        wanted.nearest = similar ? content.ids[*similar] : std::string_view();
    }
}

bool LinkPage::lacks(std::string_view fragment) const {
    const Wanted* const wanted = find(fragment);
    return wanted != nullptr && wanted->missing;
}

std::string_view LinkPage::nearest(std::string_view fragment) const {
    const Wanted* const wanted = find(fragment);
    return wanted == nullptr ? std::string_view() : wanted->nearest;
}

const LinkPage::Wanted* LinkPage::find(std::string_view fragment) const {
    const auto found = std::find_if(wanted_.begin(), wanted_.end(), [fragment](const Wanted& each) {
        return each.fragment == fragment;
    });
    return found == wanted_.end() ? nullptr : &*found;
}

} // namespace quillmark::web

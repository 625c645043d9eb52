#include "web/links/LinkCheck.h"

#include "web/judge/JudgedPage.h"
#include "web/links/LinkAddress.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace quillmark::web {

namespace {

/// Requests to one host at a time: fewer than a browser makes, and enough to be done soon.
constexpr std::size_t ToOneHost = 4;
constexpr int Retries = 2;
constexpr std::size_t StepsBetweenEvents = 1024;

FetchManners mannersFor(const LinkOptions& options, Progress& progress) {
    FetchManners manners;
    manners.toOneHost = ToOneHost;
    manners.headFirst = true;
    manners.retries = Retries;
    manners.keepCookies = true; // Some servers redirect until they get theirs back.
    manners.excludePrivate = options.excludePrivate;
    for (const std::string& header : options.headers) {
        manners.headers.push_back(headerRuleOf(header));
    }
    manners.overall = options.time;
    manners.progress = &progress;
    return manners;
}

std::string withFragment(const std::string& address, const std::string& fragment) {
    const bool hasOne = address.find('#') != std::string::npos;
    return fragment.empty() || hasOne ? address : address + "#" + fragment;
}

/// A server may refuse the address of a form because only the form sends what it wants.
bool isForm(const Place& at) {
    return at.attribute == "action" || at.attribute == "formaction";
}

} // namespace

LinkCheck::LinkCheck(SiteResults& results, const RunState& state, const LinkOptions& options,
                     Outside& outside, std::string_view ownScheme)
    : results_(results), state_(state), options_(options), outside_(outside),
      ownScheme_(ownScheme) {}

void LinkCheck::perform() {
    gather();
    if (!links_.empty() && !state_.abort) {
        ask();
        fileOccurrences();
    }
}

void LinkCheck::gather() {
    std::unordered_map<std::string_view, Link*> known;
    linkOf_.assign(results_.ignored.size(), nullptr);
    for (std::size_t i = 0; i < results_.ignored.size() && !state_.abort; ++i) {
        if (i % StepsBetweenEvents == 0) {
            outside_.events.DoEvents();
        }
        const IgnoredReference& ignored = results_.ignored[i];
        const auto found = linkAddressOf(ignored.reference, ownScheme_);
        if (ignored.reason != IgnoredReason::AnotherSite || !found ||
            ignored.reference.size() > LongestShown) {
            continue;
        }
        auto place = known.find(found->address);
        if (place == known.end()) {
            Link& link = links_.emplace_back();
            link.address = found->address;
            place = known.emplace(link.address, &link).first;
        }
        linkOf_[i] = place->second;
        if (options_.fragments) {
            wantFragment(*place->second, found->fragment);
        }
    }
}

void LinkCheck::wantFragment(Link& link, std::string_view fragment) {
    if (!LinkPage::isJudged(fragment)) {
        return;
    }
    if (link.page == nullptr) {
        link.page = &pages_.emplace_back();
    }
    link.page->want(fragment);
}

void LinkCheck::ask() {
    std::vector<UrlRequest> requests;
    for (const Link& link : links_) {
        requests.push_back({link.address, link.page});
    }
    outside_.inet.expect(requests, mannersFor(options_, outside_.listener));
    for (std::size_t i = 0; i < links_.size(); ++i) {
        const UrlAnswer answer = outside_.inet.OpenURL(requests[i]);
        if (state_.abort) {
            break;
        }
        take(links_[i], answer);
    }
    outside_.inet.expect({},
                         {}); // What was not asked for before Stop need not be fetched any more.
}

void LinkCheck::take(Link& link, const UrlAnswer& answer) {
    const std::string leadsTo = answer.redirects.empty() ? "" : answer.redirects.back().to;
    link.asked = true;
    link.verdict = verdictOn(answer);
    // A fragment in the redirect replaces the one in the reference. And only a page that came whole
    // can be said to lack something.
    if (leadsTo.find('#') != std::string::npos || answer.status >= 300 ||
        answer.failure != UrlFailure::None) {
        link.page = nullptr;
    }
    results_.addresses.push_back({results_.texts.keep(link.address), results_.texts.keep(leadsTo),
                                  static_cast<std::uint16_t>(answer.status), link.verdict.kind});
}

void LinkCheck::fileOccurrences() {
    std::vector<IgnoredReference> left;
    for (std::size_t i = 0; i < linkOf_.size(); ++i) {
        if (linkOf_[i] != nullptr && linkOf_[i]->asked) {
            file(results_.ignored[i], *linkOf_[i]);
        } else {
            left.push_back(results_.ignored[i]);
        }
    }
    results_.ignored = std::move(left);
}

void LinkCheck::file(const IgnoredReference& ignored, const Link& link) {
    const std::string fragment = linkAddressOf(ignored.reference, ownScheme_)->fragment;
    const LinkVerdict& verdict = link.verdict;
    Finding finding;
    finding.at = ignored.at;
    finding.reference = ignored.reference;
    if (link.page != nullptr && link.page->lacks(fragment)) {
        const std::string_view nearest = link.page->nearest(fragment);
        finding.kind = FindingKind::FragmentMissing;
        if (!nearest.empty()) {
            finding.suggestion = results_.texts.keep(link.address + "#" + std::string(nearest));
        }
    } else if (verdict.kind) {
        finding.kind = *verdict.kind;
        finding.level = isForm(ignored.at) ? FindingLevel::Note : verdict.level;
        finding.status = verdict.status;
        if (!verdict.movedTo.empty()) {
            finding.suggestion = results_.texts.keep(withFragment(verdict.movedTo, fragment));
        }
    } else {
        return;
    }
    results_.findings.push_back(finding);
}

} // namespace quillmark::web

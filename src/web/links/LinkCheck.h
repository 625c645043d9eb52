#pragma once

#include "findings/SiteResults.h"
#include "run/Outside.h"
#include "run/RunState.h"
#include "web/links/LinkOptions.h"
#include "web/links/LinkPage.h"
#include "web/links/LinkVerdict.h"

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Asks each web address among the ignored references once, and files what is wrong with them.
class LinkCheck {
public:
    /// `ownScheme` is that of the site: "https".
    LinkCheck(SiteResults& results, const RunState& state, const LinkOptions& options,
              Outside& outside, std::string_view ownScheme);

    /// Appends addresses and findings, and removes the references that were judged from the ignored
    /// ones. The abort flag ends it; what was judged until then stays.
    void perform();

private:
    struct Link {
        std::string address;
        LinkPage* page = nullptr; ///< Looks for fragments in the answer; null if none are wanted.
        bool asked = false;
        LinkVerdict verdict;
    };
    void gather();
    void wantFragment(Link& link, std::string_view fragment);
    void ask();
    void take(Link& link, const UrlAnswer& answer);
    void fileOccurrences();
    void file(const IgnoredReference& ignored, const Link& link);

    SiteResults& results_;
    const RunState& state_;
    const LinkOptions& options_;
    Outside& outside_;
    std::string_view ownScheme_;
    std::deque<Link> links_;
    std::vector<Link*> linkOf_; ///< By ignored reference; null where it leads to no web address.
    std::deque<LinkPage> pages_;
};

} // namespace quillmark::web

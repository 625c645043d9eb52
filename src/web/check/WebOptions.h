#pragma once

#include "settings/Profile.h"
#include "web/links/LinkOptions.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// Options of a check with the web rules, beside its settings.
struct WebOptions {
    std::vector<std::string> indexNames = {"index.html", "index.htm"};
    std::vector<std::string> exclude; ///< RE2 patterns: references that are not looked up.
    std::vector<std::string> keep;    ///< RE2 patterns: files that are never called unused.
    bool cleanUrls = false;           ///< "about" leads to about.html.
    bool allPages = false;            ///< Read pages that no reference leads to, too.
    unsigned threads = 0;             ///< Threads that read pages; 0 means one per core.
    LinkOptions links;                ///< Used if the profile asks for web addresses.
};

/// Throws a Failure that names the first invalid value: a pattern that is not a regular expression,
/// a malformed header, or a site address that is not an http or https address.
void requireSoundOptions(const WebOptions& options, const Profile& profile);

} // namespace quillmark::web

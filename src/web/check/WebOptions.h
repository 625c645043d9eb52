#pragma once

#include "settings/Profile.h"
#include "web/links/LinkOptions.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// What a check with the web rules can be told beyond the settings.
struct WebOptions {
    std::vector<std::string> indexNames = {"index.html", "index.htm"};
    std::vector<std::string> exclude; ///< RE2: references that are not looked up.
    std::vector<std::string> keep;    ///< RE2: paths from the top that are never called unused.
    bool cleanUrls = false;           ///< "about" finds about.html.
    bool allPages = false;            ///< Reads every page of the inventory.
    unsigned threads = 0;             ///< That read pages; 0 is one a core.
    LinkOptions links;                ///< Where the profile has web addresses checked.
};

/// Throws a Failure that names the first pattern that is no regular expression, a header that is
/// none, or a site address that is none.
void requireSoundOptions(const WebOptions& options, const Profile& profile);

} // namespace quillmark::web

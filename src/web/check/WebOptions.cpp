#include "web/check/WebOptions.h"

#include "base/Failure.h"
#include "web/address/SiteUrl.h"
#include "web/judge/Patterns.h"

#include <algorithm>

namespace quillmark::web {

void requireSoundOptions(const WebOptions& options, const Profile& profile) {
    const Patterns exclude(options.exclude);
    const Patterns keep(options.keep);
    std::for_each(options.links.headers.begin(), options.links.headers.end(), headerRuleOf);
    if (!profile.SITE_URL.empty() && !parseSiteUrl(profile.SITE_URL)) {
        throw invalidValue("\"" + profile.SITE_URL +
                           "\" is not the address of a site; write one such as "
                           "https://www.site.example/");
    }
}

} // namespace quillmark::web

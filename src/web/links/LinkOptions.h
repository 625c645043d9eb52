#pragma once

#include "run/UrlFetcher.h"

#include <chrono>
#include <string>
#include <vector>

namespace quillmark::web {

/// How web addresses are checked.
struct LinkOptions {
    bool fragments = false;           ///< Look for their fragments in the pages that answer.
    bool excludePrivate = false;      ///< Ask nothing in private networks.
    std::vector<std::string> headers; ///< "https://www.site.example/ Name: value".
    std::chrono::seconds time{600};   ///< The limit for all addresses together.
};

/// Reads "https://www.site.example/members/ Name: value". Throws a Failure unless the text is an
/// http or https address, a blank and a header.
HeaderRule headerRuleOf(const std::string& text);

} // namespace quillmark::web

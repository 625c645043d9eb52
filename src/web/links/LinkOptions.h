#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace quillmark::web {

/// How web addresses are asked, where the profile has them checked.
struct LinkOptions {
    bool fragments = false;           ///< Looks for their fragments in the pages that answer.
    bool excludePrivate = false;      ///< Asks none in private networks.
    std::vector<std::string> headers; ///< "https://www.site.example/ Name: value".
    std::chrono::seconds time{600};   ///< For all of them together.
};

} // namespace quillmark::web

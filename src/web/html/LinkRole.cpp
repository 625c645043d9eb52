#include "web/html/LinkRole.h"

#include "web/text/Ascii.h"

#include <algorithm>
#include <array>

namespace quillmark::web {

namespace {

bool hasWord(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const auto* const end = std::find_if(words.begin(), words.end(), isBlank);
        const auto size = static_cast<std::size_t>(end - words.begin());
        if (equalIgnoringCase(words.substr(0, size), word)) {
            return true;
        }
        words.remove_prefix(std::min(size + 1, words.size()));
    }
    return false;
}

} // namespace

std::optional<Role> linkRole(std::string_view rel, std::string_view type) {
    type = withoutOuterBlanks(type);
    if (hasWord(rel, "stylesheet")) {
        return type.empty() || startsIgnoringCase(type, "text/css") ? Role::Sheet : Role::Link;
    }
    if (hasWord(rel, "manifest")) {
        return Role::Manifest;
    }
    const bool feed = equalIgnoringCase(type, "application/rss+xml") ||
                      equalIgnoringCase(type, "application/atom+xml");
    if (hasWord(rel, "sitemap") || (feed && hasWord(rel, "alternate"))) {
        return Role::Feed;
    }
    if (hasWord(rel, "preconnect") || hasWord(rel, "dns-prefetch")) {
        return std::nullopt;
    }
    return Role::Link;
}

bool namesFile(std::string_view name) {
    constexpr auto Names = std::to_array<std::string_view>(
        {"og:image", "og:image:url", "og:image:secure_url", "og:video", "og:video:url", "og:audio",
         "og:audio:url", "twitter:image", "twitter:image:src", "image", "thumbnail", "thumbnailurl",
         "msapplication-config", "msapplication-tileimage", "msapplication-square70x70logo",
         "msapplication-square150x150logo", "msapplication-square310x310logo",
         "msapplication-wide310x150logo"});
    name = withoutOuterBlanks(name);
    return std::any_of(Names.begin(), Names.end(),
                       [name](std::string_view known) { return equalIgnoringCase(known, name); });
}

} // namespace quillmark::web

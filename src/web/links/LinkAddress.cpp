#include "web/links/LinkAddress.h"

#include "web/address/ReferenceText.h"
#include "web/address/SiteUrl.h"
#include "web/text/Ascii.h"

#include <algorithm>

namespace quillmark::web {

namespace {

/// User and password, in front of the "@", keep their letter case: it matters there.
std::string withLowerHost(std::string_view authority) {
    const std::size_t host = authority.rfind('@') + 1;
    return std::string(authority.substr(0, host)) + lowerAscii(std::string(authority.substr(host)));
}

/// The path and query, with "/" for "\" in the path.
std::string pathOf(std::string_view text) {
    const std::size_t query = std::min(text.find('?'), text.size());
    std::string path(text.substr(0, query));
    std::replace(path.begin(), path.end(), '\\', '/');
    return (path.empty() ? "/" : path).append(text.substr(query));
}

} // namespace

std::optional<LinkAddress> linkAddressOf(std::string_view reference, std::string_view ownScheme) {
    std::string cleaned;
    std::string_view text = cleanedReference(reference, cleaned);
    const auto fragment = cutFragment(text);
    std::string_view scheme = schemeOf(text);
    if (!scheme.empty()) {
        text.remove_prefix(scheme.size() + 1);
    } else {
        scheme = ownScheme;
    }
    if (!webPort(scheme) || text.size() < 2 || !isSlash(text[0]) || !isSlash(text[1])) {
        return std::nullopt;
    }
    text.remove_prefix(std::min(text.find_first_not_of("/\\"), text.size()));
    const std::size_t end = std::min(text.find_first_of("/\\?"), text.size());
    return LinkAddress{lowerAscii(std::string(scheme)) + "://" +
                           withLowerHost(text.substr(0, end)) + pathOf(text.substr(end)),
                       std::string(fragment.value_or(""))};
}

} // namespace quillmark::web

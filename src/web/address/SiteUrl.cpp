#include "web/address/SiteUrl.h"

#include "web/address/PercentCoding.h"
#include "web/text/Ascii.h"

namespace quillmark::web {

namespace {

bool isSchemeCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
}

} // namespace

std::string_view schemeOf(std::string_view text) {
    if (text.empty() || !isLetter(text.front())) {
        return {};
    }
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == ':') {
            return text.substr(0, i);
        }
        if (!isSchemeCharacter(text[i])) {
            return {};
        }
    }
    return {};
}

std::optional<std::uint16_t> webPort(std::string_view scheme) {
    if (equalIgnoringCase(scheme, "http")) {
        return std::uint16_t{80};
    }
    if (equalIgnoringCase(scheme, "https")) {
        return std::uint16_t{443};
    }
    return std::nullopt;
}

std::optional<SiteUrl> parseSiteUrl(std::string_view text) {
    const std::string_view scheme = schemeOf(text);
    const auto port = webPort(scheme);
    text.remove_prefix(scheme.size());
    if (!port || !text.starts_with("://")) {
        return std::nullopt;
    }
    text.remove_prefix(3);
    const std::size_t slash = text.find('/');
    const auto authority = parseAuthority(text.substr(0, slash), *port);
    if (!authority || text.find_first_of("?#") != std::string_view::npos) {
        return std::nullopt;
    }
    SiteUrl url{*authority, {}};
    if (slash != std::string_view::npos) {
        url.folder = percentDecoded(text.substr(slash + 1));
    }
    if (!url.folder.empty() && !url.folder.ends_with('/')) {
        url.folder += '/';
    }
    return url;
}

} // namespace quillmark::web

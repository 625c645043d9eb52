#pragma once

#include "web/address/HostName.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// The scheme that a text begins with, without its ":"; empty if it begins with none (WHATWG URL,
/// section 4.4, scheme state).
std::string_view schemeOf(std::string_view text);

/// The port that http or https use unless told otherwise; nothing for other schemes.
std::optional<std::uint16_t> webPort(std::string_view scheme);

/// The address under which visitors see the site.
struct SiteUrl {
    Authority authority;
    std::string folder; ///< Of the site's top on that server: empty, or "docs/".
};

/// Reads "https://www.example.org/docs/"; nothing if it is not an http or https address, or has a
/// query or fragment.
std::optional<SiteUrl> parseSiteUrl(std::string_view text);

} // namespace quillmark::web

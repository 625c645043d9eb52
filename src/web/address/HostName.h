#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// Where a web server is looked for.
struct Authority {
    std::string host;       ///< In lower case, percent-decoded; an IPv6 address with its brackets.
    std::uint16_t port = 0; ///< 0 is the scheme's own.

    bool operator==(const Authority&) const = default;
};

/// Reads what stands between "//" and the path of an http or https address (WHATWG URL, sections
/// 3.5 and 4.4). Nothing where browsers find no host in it. Letters outside of ASCII are taken as
/// they are.
std::optional<Authority> parseAuthority(std::string_view text, std::uint16_t ownPort);

} // namespace quillmark::web

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// The host and port of a web server.
struct Authority {
    std::string host;       ///< In lower case, percent-decoded; an IPv6 address with its brackets.
    std::uint16_t port = 0; ///< 0 means the scheme's own.

    bool operator==(const Authority&) const = default;
};

/// Reads what stands between "//" and the path of an http or https address (WHATWG URL, sections
/// 3.5 and 4.4). `ownPort` is the port of its scheme. Returns nothing if browsers find no valid
/// host in it. Letters outside ASCII stay as they are.
std::optional<Authority> parseAuthority(std::string_view text, std::uint16_t ownPort);

} // namespace quillmark::web

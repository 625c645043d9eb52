#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// A reference to another site, as its server is asked for it.
struct LinkAddress {
    std::string address;  ///< Without the fragment; scheme and host in lower case, so that equal
                          ///< addresses are asked once.
    std::string fragment; ///< As written.
};

/// Nothing if the reference is not an http or https address. "//host/" takes the scheme
/// `ownScheme`.
std::optional<LinkAddress> linkAddressOf(std::string_view reference, std::string_view ownScheme);

} // namespace quillmark::web

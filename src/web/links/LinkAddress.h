#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark::web {

/// A reference to another site, as its server is asked.
struct LinkAddress {
    std::string address;  ///< Without the fragment; two that differ in letter case only where that
                          ///< has no meaning are one.
    std::string fragment; ///< As written.
};

/// Nothing for a reference that names no http or https. `//host/` takes the scheme `ownScheme`.
std::optional<LinkAddress> linkAddressOf(std::string_view reference, std::string_view ownScheme);

} // namespace quillmark::web

#pragma once

#include "web/page/PageContent.h"

#include <optional>
#include <string_view>

namespace quillmark::web {

/// What the address of a link element is for, by its attributes rel and type (decoded). Nothing if
/// it only names a host to connect to: then no file is fetched.
std::optional<Role> linkRole(std::string_view rel, std::string_view type);

/// Whether the content of a meta element with this property, name or itemprop (decoded) is the
/// address of a file: mostly pictures for previews.
bool namesFile(std::string_view name);

} // namespace quillmark::web

#pragma once

#include "web/page/PageContent.h"

#include <optional>
#include <string_view>

namespace quillmark::web {

/// What the address of a link element is for, by its attributes rel and type, decoded. Nothing for
/// one that only names a host to connect to: no file is fetched from it.
std::optional<Role> linkRole(std::string_view rel, std::string_view type);

/// Whether the content of a meta element is the address of a file, by the name that its attribute
/// property, name or itemprop gives it, decoded: pictures for previews, mostly.
bool namesFile(std::string_view name);

} // namespace quillmark::web

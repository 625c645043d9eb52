#include "web/discovery/PageKinds.h"

#include "base/FoldedName.h"

#include <algorithm>

namespace quillmark::web {

PageKinds::PageKinds(const ResultList& extensions) {
    for (int i = 0; i < extensions.Count(); ++i) {
        extensions_.push_back(foldedName(extensions.Line(i)));
    }
    for (const char* extension : {"xhtml", "shtml", "php"}) {
        extensions_.emplace_back(extension);
    }
}

std::optional<PageKind> PageKinds::byName(std::string_view path) const {
    const std::size_t dot = path.find_last_of("./");
    if (dot == std::string_view::npos || path[dot] == '/') {
        return std::nullopt;
    }
    const std::string extension = foldedName(path.substr(dot + 1));
    if (std::find(extensions_.begin(), extensions_.end(), extension) != extensions_.end()) {
        return PageKind::Html;
    }
    return extension == "svg" ? std::optional(PageKind::Svg) : std::nullopt;
}

std::optional<PageKind> PageKinds::byRole(Role role) {
    switch (role) {
    case Role::Sheet:
        return PageKind::Sheet;
    case Role::Manifest:
        return PageKind::Manifest;
    case Role::Feed:
        return PageKind::Feed;
    default:
        return std::nullopt;
    }
}

} // namespace quillmark::web

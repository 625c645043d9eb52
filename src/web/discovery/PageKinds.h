#pragma once

#include "store/ResultList.h"
#include "web/page/PageContent.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Decides by its extension, and by what refers to it, how a file is read.
class PageKinds {
public:
    /// `extensions` are those of pages (CHECK_HTML), upper case; those of pages that servers put
    /// together come with them.
    explicit PageKinds(const ResultList& extensions);

    /// How a file is read whoever refers to it; nothing for most files.
    std::optional<PageKind> byName(std::string_view path) const;
    /// How it is read for a reference of that role.
    static std::optional<PageKind> byRole(Role role);

    /// Of pages, lower case: "html".
    const std::vector<std::string>& extensions() const { return extensions_; }

private:
    std::vector<std::string> extensions_;
};

} // namespace quillmark::web

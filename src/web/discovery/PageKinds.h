#pragma once

#include "store/ResultList.h"
#include "web/page/PageContent.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Decides how a file is read: by its extension, or by what refers to it.
class PageKinds {
public:
    /// `extensions` are those of pages (CHECK_HTML), in any letter case. "xhtml", and the pages
    /// that servers put together, "shtml" and "php", are added.
    explicit PageKinds(const ResultList& extensions);

    /// How a file is read whatever refers to it; nothing for most files.
    std::optional<PageKind> byName(std::string_view path) const;
    /// How a file is read for a reference of that role; nothing if it is not read.
    static std::optional<PageKind> byRole(Role role);

    /// The extensions of pages, in lower case: "html".
    const std::vector<std::string>& extensions() const { return extensions_; }

private:
    std::vector<std::string> extensions_;
};

} // namespace quillmark::web

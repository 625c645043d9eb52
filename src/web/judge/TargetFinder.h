#pragma once

#include "run/SiteSource.h"
#include "web/site/Inventory.h"
#include "web/site/Spellings.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// What a server tries beside the exact path.
struct LookupRules {
    std::vector<std::string> indexNames;     ///< "index.html", in the order they are tried.
    std::vector<std::string> pageExtensions; ///< "html", tried if cleanUrls is set.
    bool cleanUrls = false;
    bool ignoreCase = false;
};

/// Looks up what a path leads to, as a web server for static files does. Several threads may ask at
/// once.
class TargetFinder {
public:
    TargetFinder(const Inventory& inventory, const Spellings& spellings, SiteSource& source,
                 const LookupRules& rules)
        : inventory_(inventory), spellings_(spellings), source_(source), rules_(rules) {}

    /// What the path leads to; a folder with an index page leads to that page. `path`, relative to
    /// the top of the site and decoded, becomes the path of what was found.
    Found find(std::string& path) const;

private:
    Found findFolder(std::string& path) const;
    Found findIndex(std::string& folder, const Found& found) const;
    bool isDanglingFolder(const std::string& path, Found& found) const;
    Found findOther(std::string& path) const;

    const Inventory& inventory_;
    const Spellings& spellings_;
    SiteSource& source_;
    const LookupRules& rules_;
};

} // namespace quillmark::web

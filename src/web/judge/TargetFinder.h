#pragma once

#include "run/SiteSource.h"
#include "web/site/Inventory.h"
#include "web/site/Spellings.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// How names are looked up beyond the exact path.
struct LookupRules {
    std::vector<std::string> indexNames;
    std::vector<std::string> pageExtensions; ///< "html"; tried for clean addresses.
    bool cleanUrls = false;
    bool ignoreCase = false;
};

/// Looks up what a path leads to, as a web server does that sends static files. Several threads may
/// ask at once.
class TargetFinder {
public:
    TargetFinder(const Inventory& inventory, const Spellings& spellings, SiteSource& source,
                 const LookupRules& rules)
        : inventory_(inventory), spellings_(spellings), source_(source), rules_(rules) {}

    /// What the path leads to: a folder to its index page, if it has one. `path` becomes the path
    /// of what was found.
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

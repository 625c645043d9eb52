#pragma once

#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/site/Inventory.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// How the inventory is taken.
struct WalkLimits {
    int folders = 0;      ///< How many folders below the top are entered, 0 for all.
    unsigned threads = 1; ///< That list folders.
};

/// Lists the site below `results.top` into files and folders, hidden ones too, each folder's names
/// in byte order, the folders nearest to the top first; then finds out where the links lead. What
/// cannot be listed stays out, and a line for the user goes to `troubles`.
void takeInventory(SiteSource& source, const WalkLimits& limits, StopToken& stop,
                   SiteResults& results, Inventory& inventory, std::vector<std::string>& troubles);

} // namespace quillmark::web

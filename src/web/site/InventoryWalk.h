#pragma once

#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/site/Inventory.h"

#include <string>
#include <vector>

namespace quillmark::web {

/// How far the inventory goes, and on how many threads.
struct WalkLimits {
    int levels = 0;       ///< How many levels of folders below the top are entered; 0 for all.
    unsigned threads = 1; ///< Threads that list folders.
};

/// Lists files and folders of the site below `results.top`, hidden ones too: folders nearest to the
/// top first, the names of each in byte order. Then finds out where the links lead. A folder that
/// cannot be listed is left out, and a line for the user goes to `troubles`.
void takeInventory(SiteSource& source, const WalkLimits& limits, StopToken& stop,
                   SiteResults& results, Inventory& inventory, std::vector<std::string>& troubles);

} // namespace quillmark::web

#pragma once

#include "run/LocalDisk.h"

#include <string_view>

namespace quillmark {

/// Whether lines of a page on this computer ("\" form) end in bare line feeds, as on most sites
/// today: the classic rules would read little of it. False if the page is not there or cannot be
/// read.
bool hasBareLineFeeds(LocalDisk& disk, std::string_view page);

} // namespace quillmark

#pragma once

#include "run/LocalDisk.h"

#include <string_view>

namespace quillmark {

/// Whether lines of a page on this computer ("\" form) end in bare line feeds, as on most sites of
/// today: the classic rules would hardly read it. False for a page that is not there or cannot be
/// read.
bool hasBareLineFeeds(LocalDisk& disk, std::string_view page);

} // namespace quillmark

#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/judge/Patterns.h"

#include <string_view>

namespace quillmark::web {

/// Whether browsers, robots or servers ask for a file of this name without a reference: robots.txt,
/// favicon.ico and the like. The path is relative to the top of the site.
bool isAskedForByName(std::string_view path);

/// Finds the files that no page read refers to. Links, hidden files, files that are asked for by
/// name and paths that `keep` matches are never called unused.
void findUnusedFiles(SiteResults& results, const Patterns& keep);

/// Finds groups of files with equal bytes: by size, then by hash, then by the bytes themselves.
/// Links and hidden files are left out. A file that cannot be read is no duplicate.
void findDuplicateFiles(SiteResults& results, SiteSource& source, StopToken& stop);

/// The same by name and size: on a host, comparing bytes would mean retrieving every file.
void findDuplicatesByName(SiteResults& results);

} // namespace quillmark::web

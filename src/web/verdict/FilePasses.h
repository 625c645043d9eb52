#pragma once

#include "findings/SiteResults.h"
#include "run/SiteSource.h"
#include "run/StopToken.h"
#include "web/judge/Patterns.h"

#include <string_view>

namespace quillmark::web {

/// Whether a file of this name is asked for without a reference: robots.txt, favicon.ico and the
/// like. The path is from the top of the site on.
bool isAskedForByName(std::string_view path);

/// Finds the files that nothing reached names. Links, hidden files, names that others ask for and
/// what `keep` matches are never called unused.
void findUnusedFiles(SiteResults& results, const Patterns& keep);

/// Finds groups of files with equal bytes: by size, then by hash, then by the bytes themselves.
/// Links and hidden files are left out. A file that cannot be read is no duplicate.
void findDuplicateFiles(SiteResults& results, SiteSource& source, StopToken& stop);

/// The same by name and size, where reading all bytes would mean retrieving them.
void findDuplicatesByName(SiteResults& results);

} // namespace quillmark::web

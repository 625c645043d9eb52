#pragma once

#include "store/ResultList.h"

#include <string_view>

namespace quillmark {

/// Whether a reached file is a page to be scanned: its upper-cased name holds "." and one of the
/// extensions anywhere, so that archive.htmx and page.htm.bak are pages too.
bool IsHTMLFile(std::string_view name, const ResultList& extensions);

} // namespace quillmark

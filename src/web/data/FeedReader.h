#pragma once

#include "web/page/References.h"

namespace quillmark::web {

/// Reads the addresses in a sitemap, an RSS feed or an Atom feed: all of them count as use only.
void readFeed(const Source& source, PageContent& content);

} // namespace quillmark::web

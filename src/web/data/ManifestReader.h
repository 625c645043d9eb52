#pragma once

#include "web/page/References.h"

namespace quillmark::web {

/// Reads the addresses in a web app manifest (W3C Web Application Manifest): its start_url, and the
/// pictures and pages of its icons, screenshots and shortcuts. What follows an error in the JSON is
/// left out.
void readManifest(const Source& source, PageContent& content);

} // namespace quillmark::web

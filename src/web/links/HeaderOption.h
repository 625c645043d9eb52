#pragma once

#include "run/UrlFetcher.h"

#include <string>

namespace quillmark::web {

/// Reads "https://www.site.example/members/ Name: value". Throws a Failure if that is no address of
/// http or https and a header.
HeaderRule headerRuleOf(const std::string& text);

} // namespace quillmark::web

#pragma once

#include "web/page/PageContent.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmark::web::test {

/// What a page holds, as texts: "base a/", and a line for each reference ("3:12 img src a.png") or
/// id ("#top"), in source order.
using Lines = std::vector<std::string>;

/// The lines of what readPage found.
Lines linesOf(const PageContent& content);

/// The same for a page. It is read from a copy that ends where its memory ends, so that the
/// sanitizer sees any byte too many.
Lines linesOf(std::string_view page, PageKind kind = PageKind::Html);

/// The lines that libgumbo's tree of a page stands for, but for those of CSS and its base. The page
/// is UTF-8 without a byte order mark. What attributes mean is looked up in the reader's own
/// tables: what is judged is the markup.
Lines judge(std::string_view page);

} // namespace quillmark::web::test

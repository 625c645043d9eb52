#pragma once

#include <string_view>

namespace quillmark::web {

/// The text of a page as UTF-8, without a byte order mark, and what it is known to be free of.
struct Source {
    std::string_view text;
    bool ascii = false;          ///< No byte above 0x7F.
    bool carriageReturns = true; ///< Any CR.
    bool nuls = true;            ///< Any NUL byte.
};

/// Looks through a text once for what a Source tells of it.
Source inspect(std::string_view text);

} // namespace quillmark::web

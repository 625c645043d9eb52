#pragma once

#include "run/SiteSource.h"

#include <string_view>
#include <vector>

namespace quillmark::web {

/// What a host says of a folder, line by line. Names are bytes, with every blank in them; "." and
/// "..", names with a "/", and what is no file, folder or link are left out.
struct HostListing {
    std::vector<SiteEntry> entries;
    bool understood = true; ///< No line was of another style than those of takeLine().

    /// A line of a long listing as UNIX systems, SFTP hosts among them, or DOS systems write it.
    void takeLine(std::string_view line);
    /// A line of facts (MLSD, RFC 3659, section 7.2). They do not always tell a link from what it
    /// leads to, nor name links that lead nowhere: a listing that is understood tells more.
    void takeFacts(std::string_view line);

private:
    void add(SiteEntry entry);
};

} // namespace quillmark::web

#pragma once

#include "run/SiteSource.h"

#include <string_view>
#include <vector>

namespace quillmark::web {

/// The entries of a host's folder, taken line by line. Names are bytes and keep all their blanks.
/// "." and "..", names with a "/", and whatever is not a file, folder or link are left out.
struct HostListing {
    std::vector<SiteEntry> entries;
    bool understood = true; ///< False once takeLine() got a line of an unknown style.

    /// Takes a line of a long listing, in the style of UNIX (and SFTP hosts) or DOS.
    void takeLine(std::string_view line);
    /// Takes a line of facts (MLSD, RFC 3659, section 7.2). Facts do not always tell a link from
    /// its target, and may leave out links that lead nowhere: a listing that is understood tells
    /// more.
    void takeFacts(std::string_view line);

private:
    void add(SiteEntry entry);
};

} // namespace quillmark::web

#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// What turns a host path into a web address, guessed from the name of the FTP server: its first
/// three letters "ftp" become "www"; any other name, and a numeric address, stays as it is.
struct BaseUrl {
    std::string url;
    /// False for a host name too short to tell; the log then has no line with the address.
    bool settled = true;
};

/// `hostName` is HOST_NAME, a name or a numeric address; it may be empty.
BaseUrl computeBaseUrl(std::string_view hostName);

} // namespace quillmark

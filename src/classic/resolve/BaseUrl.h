#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// What turns a host path into a web address, guessed from the name of the FTP server: its first
/// three letters "ftp" become "www"; any other name, and a numeric address, stays as it is.
struct BaseUrl {
    std::string url;
    /// False for a host name that is too short to tell; the address is then not announced.
    bool settled = true;
};

BaseUrl computeBaseUrl(std::string_view hostName);

} // namespace quillmark

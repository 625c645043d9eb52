#pragma once

#include "engine/outside/FtpComponent.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// One operation as libcurl is asked for it.
struct FtpRequest {
    std::string url;
    std::vector<std::string> commands; ///< Sent before a transfer, or instead of one.
    bool transfer = false;             ///< Whether bytes come over a data connection.
    /// What is sent for the transfer when the URL names no file.
    std::string transferCommand;
};

/// Whether the text can be part of one command: no line break, no zero byte.
bool isSendable(std::string_view text);

/// "ftp://host:port/". Throws a Failure when the host is no host name or the port no port.
std::string hostUrl(const FtpLogin& login);

/// Logs in and does no more.
FtpRequest loginRequest(const std::string& hostUrl);
/// A command without a transfer; what the host answers leaves the connection as it is.
FtpRequest commandRequest(const std::string& hostUrl, const std::string& command);
/// A long listing, of the current directory when the directory is empty.
FtpRequest listRequest(const std::string& hostUrl, std::string_view directory);
/// A file in binary.
FtpRequest retrieveRequest(const std::string& hostUrl, std::string_view file);

} // namespace quillmark

#pragma once

#include "platform/FileDescriptor.h"
#include "platform/ftp/connection/HostWait.h"
#include "run/FtpComponent.h"

#include <string>

namespace quillmark {

/// Where libcurl finds the host. Throws a Failure when the host is no host name or the port no
/// port.
std::string hostUrl(const FtpLogin& login);

/// Looks the host's name up and connects with the first of its addresses that takes the connection;
/// never through a proxy. Returns the socket, which does not block.
FileDescriptor connectToHost(const std::string& url, HostWait& wait);

} // namespace quillmark

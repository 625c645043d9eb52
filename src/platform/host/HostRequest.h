#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/host/HostTasks.h"
#include "run/FtpLogin.h"

#include <string>
#include <string_view>

namespace quillmark {

/// What an operation is called.
struct HostVerb {
    std::string_view ftp;   ///< The command that it is about; empty: none.
    std::string_view sftp;  ///< libcurl's own command for it over SFTP; empty: none.
    std::string_view trace; ///< Over SFTP, which has no lines of text.
    bool isTransfer;
};
const HostVerb& verbOf(HostOperation::Kind kind);

/// Whether the encryption is one of FTP.
bool isTls(Encryption encryption);

/// The address of the host, with "/" at its end. Throws a Failure when the host is no host name or
/// the port no port.
std::string hostUrl(const FtpLogin& login);

/// Sets what holds for every operation on the host.
void setLogin(CURL* easy, const FtpLogin& login, const FtpTimeouts& timeouts);

/// Sets what one operation asks for. The commands must live until it has ended.
CurlList setOperation(CURL* easy, const std::string& hostUrl, Encryption encryption,
                      const HostOperation& operation);

} // namespace quillmark

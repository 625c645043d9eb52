#pragma once

#include "platform/curl/CurlHandle.h"
#include "platform/host/FtpTimeouts.h"
#include "platform/host/HostTask.h"
#include "run/FtpComponent.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Whether the encryption is one of FTP.
bool isTls(Encryption encryption);

/// Whether the text can be part of one command: a line break would begin another one.
bool isSendable(std::string_view text);

/// The address of the host, with "/" at its end. Throws a Failure when the host is no host name or
/// the port no port.
std::string hostUrl(const FtpLogin& login);

/// Sets what holds for every operation on the host.
void setLogin(CURL* easy, const FtpLogin& login, const FtpTimeouts& timeouts);

/// Sets what one operation asks for. The commands must live until it has ended.
CurlList setOperation(CURL* easy, const std::string& hostUrl, const HostOperation& operation);
/// The same over SFTP.
CurlList setSftpOperation(CURL* easy, const std::string& hostUrl, const HostOperation& operation);

/// Sets how long libcurl tries each of the host's addresses. Its clock goes on during the login, so
/// it is lifted as soon as the host has spoken.
void setConnectLimit(CURL* easy, std::chrono::milliseconds limit);
void liftConnectLimit(CURL* easy);

} // namespace quillmark

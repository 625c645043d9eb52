#pragma once

#include "engine/outside/FtpComponent.h"
#include "platform/curl/CurlHandle.h"
#include "platform/ftp/FtpRequest.h"
#include "platform/ftp/FtpTimeouts.h"

#include <chrono>

namespace quillmark {

/// What every operation has in common: FTP only, no proxy, no settings of the machine's user, and
/// no command that nothing needs.
void setUsualOptions(CURL* easy);
/// The clock of the conversation is what counts; libcurl's own limits are laid behind it.
void setTimeouts(CURL* easy, const FtpTimeouts& timeouts);
/// How long libcurl may take for a connection.
void setConnectLimit(CURL* easy, std::chrono::milliseconds limit);
void liftConnectLimit(CURL* easy);

void setLoginOptions(CURL* easy, const FtpLogin& login);
/// Returns the commands of the request, which must live as long as the operation.
CurlList setRequestOptions(CURL* easy, const FtpRequest& request);

} // namespace quillmark

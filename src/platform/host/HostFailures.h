#pragma once

#include "base/Failure.h"

#include <string>

namespace quillmark {

/// 1020: a connection with the host that was lost and could not be had again.
Failure hostConnectionLost(const std::string& reason);
/// 1021: the host said no; `reply` is its own wording.
Failure refusedByHost(const std::string& reply);
/// 1022: a text that would be more than one command on its way to the host.
Failure unsendableText();
/// 1023: a host name or port that no connection can be made with.
Failure notAHost(const std::string& detail);
/// 1024: a deletion that may or may not have happened, since nobody waited for the answer.
Failure stoppedByUser();
/// 1026: TLS with data connections that the host opens; libcurl would wait for them in vain.
Failure activeOverTls();

} // namespace quillmark

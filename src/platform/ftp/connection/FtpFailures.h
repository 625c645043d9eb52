#pragma once

#include "base/Failure.h"

#include <exception>
#include <stdexcept>
#include <string>

namespace quillmark {

/// The run is being aborted, or the taker of the bytes wants no more of them.
class Stopped : public std::exception {};

/// The control connection is of no use any more, or there is none; what() tells why.
class ConnectionLost : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

ConnectionLost hostIsSilent();
ConnectionLost cannotConnect();
ConnectionLost closedByHost();
/// A reply that answers something else than what was sent, or has no end.
ConnectionLost senselessReply();

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

} // namespace quillmark

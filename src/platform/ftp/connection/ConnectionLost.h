#pragma once

#include <exception>
#include <stdexcept>

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

} // namespace quillmark

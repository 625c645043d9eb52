#pragma once

#include <chrono>

namespace quillmark {

/// How long a silent host is waited for.
struct FtpTimeouts {
    std::chrono::milliseconds connect{20'000};  ///< For a connection, the greeting included.
    std::chrono::milliseconds reply{60'000};    ///< For the reply to a command.
    std::chrono::milliseconds transfer{60'000}; ///< For the next byte of a transfer.
    /// For a whole operation, whatever arrives; bytes give it more time.
    std::chrono::milliseconds operation{600'000};
};

/// The time-outs that the user set in seconds with QUILLMARK_CONNECT_TIMEOUT,
/// QUILLMARK_REPLY_TIMEOUT and QUILLMARK_TRANSFER_TIMEOUT; a variable that is not set, or is no
/// number above 0, leaves the usual one.
FtpTimeouts timeoutsFromEnvironment();

} // namespace quillmark

#pragma once

#include <string_view>

namespace quillmark {

/// Who follows the conversation with the host.
class FtpTrace {
public:
    virtual ~FtpTrace() = default;

    /// Takes one command sent or one line of a reply received, without its line end, in the order
    /// of the conversation. Never the password: its command comes as "PASS" alone.
    virtual void Trace(std::string_view text) = 0;
};

} // namespace quillmark

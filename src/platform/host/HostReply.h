#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The last line of a host's reply to a command (RFC 959); code 0 while there is none.
struct HostReply {
    int code = 0;
    std::string text;

    /// Whether the host said no.
    bool negative() const { return code >= 400; }
    /// Whether it wants something else than what it got: a refusal, or an account.
    bool unsatisfied() const { return code >= 300; }
    /// Whether it is about to close the connection.
    bool isGoodbye() const { return code == 421; }
    /// Whether it tells where to open a data connection.
    bool namesPort() const { return code == 227 || code == 229; }
    /// Whether it announces a transfer.
    bool announcesTransfer() const { return code == 125 || code == 150; }
    /// Whether it said no because a data connection failed, which may work the next time.
    bool brokenTransfer() const { return code == 425 || code == 426; }
};

/// The code of a line that ends a reply ("226 Done"), 0 for any other line ("226-More").
int finalCode(std::string_view line);

/// The line without its line end, and with "***" for the password where a host echoes it.
std::string withoutPassword(std::string_view line, std::string_view password);

} // namespace quillmark

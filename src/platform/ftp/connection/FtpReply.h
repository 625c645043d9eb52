#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// A host's reply: its code and its last line.
struct FtpReply {
    int code = 0;
    std::string text;

    /// Whether the host did what it was asked for.
    bool positive() const { return code >= 200 && code < 300; }
    /// Whether the host said no.
    bool negative() const { return code >= 400; }
    /// Whether it announces something before the reply that counts.
    bool announces() const { return code < 200; }
};

/// The code of a line that ends a reply ("226 Done"), 0 for any other line.
int finalCode(std::string_view line);
/// The code of a line that begins a reply of several lines ("226-More"), 0 for any other line.
int firstCode(std::string_view line);

/// The port that a reply to EPSV ("229 Extended (|||5000|)") or PASV ("227 Passive
/// (192,0,2,1,19,136)") names; the address is left out. Nothing for any other reply.
std::optional<std::uint16_t> portIn(const FtpReply& reply);

/// The line without its line end, and without the password where a host echoes it.
std::string withoutPassword(std::string_view line, std::string_view password);

} // namespace quillmark

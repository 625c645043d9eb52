#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmark {

/// How the connection to a web host is encrypted: not at all, by TLS that the client asks for once
/// connected (RFC 4217), by TLS from the first byte on, or by SSH, whose file transfer (SFTP) is
/// another protocol than FTP.
enum class Encryption { None, Tls, Implicit, Sftp };

/// As settings files and command lines spell it: "none", "tls", "implicit", "sftp".
std::string_view nameOf(Encryption encryption);

/// The encryption of that name; nullopt for any other text.
std::optional<Encryption> encryptionNamed(std::string_view name);

/// The port on which hosts answer unless somebody moved it: 21, 990 or 22.
std::int16_t usualPort(Encryption encryption);

} // namespace quillmark

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// The SHA-256 of a certificate (of its DER form) or of a host key (of its public blob).
using Sha256 = std::array<std::uint8_t, 32>;

/// As openssl and browsers show that of a certificate: "AB:CD:...", 32 bytes in capital letters.
std::string certificateFingerprint(const Sha256& hash);

/// As ssh shows that of a key: "SHA256:" and 43 characters of base64.
std::string keyFingerprint(const Sha256& hash);

/// Reads either form, that of a certificate without colons and in small letters, too. None for any
/// other text.
std::optional<Sha256> fingerprintIn(std::string_view text);

} // namespace quillmark

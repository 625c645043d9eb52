#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

/// The SHA-256 of a certificate (of its DER form) or of a host key (of its public blob).
using Sha256 = std::array<std::uint8_t, 32>;

/// The fingerprint of a certificate as openssl and browsers show it: 32 pairs of upper-case
/// hexadecimal digits, "AB:CD:...".
std::string certificateFingerprint(const Sha256& hash);

/// The fingerprint of a key as ssh shows it: "SHA256:" and 43 characters of base64.
std::string keyFingerprint(const Sha256& hash);

/// Reads either form, a certificate's also without colons and in lower case. nullopt for any other
/// text.
std::optional<Sha256> fingerprintIn(std::string_view text);

} // namespace quillmark

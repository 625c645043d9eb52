#pragma once

#include "settings/Fingerprint.h"

#include <optional>
#include <string>
#include <vector>

namespace quillmark {

/// How a web host proves who it is, and why that is not enough.
struct HostIdentity {
    enum class Kind {
        Certificate, ///< Of TLS.
        Key          ///< Of SSH.
    };

    Kind kind = Kind::Certificate;
    std::string host;               ///< As the user named it, and the port.
    std::string reason;             ///< "self-signed certificate"
    std::vector<std::string> names; ///< For which a certificate was made out.
    std::string validFrom;          ///< Of a certificate, as its library prints dates.
    std::string validUntil;
    Sha256 sha256{};
    std::optional<Sha256> knownSha256; ///< Of another one that this host was known by.

    /// Whether somebody else may sit between: the host had another key. Nobody is asked then.
    bool keyChanged() const { return kind == Kind::Key && knownSha256.has_value(); }
    /// A hash of this kind as the user's other tools print it.
    std::string printed(const Sha256& hash) const {
        return kind == Kind::Key ? keyFingerprint(hash) : certificateFingerprint(hash);
    }
};

/// Asks somebody who can tell.
class HostTrust {
public:
    virtual ~HostTrust() = default;

    /// Whether the host may be trusted although its identity was refused, from now on. Asked at
    /// most once a run, on the run's thread, and may take minutes. A key that changed is shown and
    /// never trusted.
    virtual bool trusts(const HostIdentity& identity) = 0;
};

} // namespace quillmark

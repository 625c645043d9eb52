#pragma once

#include "settings/Fingerprint.h"

#include <optional>
#include <string>
#include <vector>

namespace quillmark {

/// What a web host showed to prove who it is, and why that was refused.
struct HostIdentity {
    enum class Kind {
        Certificate, ///< Of TLS.
        Key          ///< Of SSH.
    };

    Kind kind = Kind::Certificate;
    std::string host;               ///< As the user named it, and the port.
    std::string reason;             ///< "self-signed certificate"
    std::vector<std::string> names; ///< That a certificate was issued for.
    std::string validFrom;          ///< Of a certificate, as its library prints dates.
    std::string validUntil;
    Sha256 sha256{};
    std::optional<Sha256> knownSha256; ///< Of the one that this host had before.

    /// Whether the host had another key before. Somebody else may answer in its place, so the user
    /// is not offered to trust it.
    bool keyChanged() const { return kind == Kind::Key && knownSha256.has_value(); }
    /// A hash of this kind as the user's other tools print it.
    std::string printed(const Sha256& hash) const {
        return kind == Kind::Key ? keyFingerprint(hash) : certificateFingerprint(hash);
    }
};

/// Asks the user whether a host may be trusted.
class HostTrust {
public:
    virtual ~HostTrust() = default;

    /// Whether to trust the host from now on although its identity was refused. Called at most once
    /// a run, on the run's thread; the answer may take minutes. A key that changed is only shown,
    /// never trusted.
    virtual bool trusts(const HostIdentity& identity) = 0;
};

} // namespace quillmark

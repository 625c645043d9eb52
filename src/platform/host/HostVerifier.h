#pragma once

#include "platform/curl/CurlHandle.h"
#include "run/FtpLogin.h"
#include "run/HostTrust.h"

#include <optional>
#include <utility>

#include <openssl/ssl.h>

namespace quillmark {

/// Decides whether a host is who it says it is. A certificate must be vouched for by the system's
/// authorities (those of SSL_CERT_FILE where that is set) and be made out for the host, a key must
/// be in the user's known_hosts; or it is the one that the login trusts, and then nothing else
/// counts. It sees the certificate of each data connection, too, except where that resumes the
/// session of one that was verified.
class HostVerifier {
public:
    /// The login outlives the verifier.
    explicit HostVerifier(const FtpLogin& login) : login_(login) {}

    /// Has a handle ask from now on.
    void watch(CURL* easy);

    /// Whether the TLS connection that was begun last has been ended by the host in so many words:
    /// libcurl takes the end of the bytes for it, which anybody on the way can bring about.
    bool ended() const { return ended_; }

    /// Who was refused since the last call, if anybody was.
    std::optional<HostIdentity> takeRefused() { return std::exchange(refused_, std::nullopt); }

private:
    static CURLcode prepareTls(CURL* easy, void* context, void* verifier);
    static void followTls(const SSL* tls, int where, int value);
    static int verifyCertificate(X509_STORE_CTX* chain, void* verifier);
    static int verifyKey(CURL* easy, const curl_khkey* known, const curl_khkey* found,
                         curl_khmatch match, void* verifier);
    void refuse(HostIdentity identity);

    const FtpLogin& login_;
    std::optional<HostIdentity> refused_;
    bool ended_ = false;
};

} // namespace quillmark

#include "platform/host/HostVerifier.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>
#include <openssl/x509v3.h>

namespace quillmark {

namespace {

struct BioDelete {
    void operator()(BIO* bio) const { BIO_free(bio); }
};

/// The fingerprint of a key, of which known_hosts has the public blob in base64.
Sha256 hashOf(const curl_khkey& key) {
    std::string blob(key.key, key.len);
    if (key.len == 0) {
        const std::string_view text(key.key);
        const std::size_t padding = text.size() - (text.find_last_not_of('=') + 1);
        blob.resize(text.size());
        const int size = EVP_DecodeBlock(reinterpret_cast<unsigned char*>(blob.data()),
                                         reinterpret_cast<const unsigned char*>(text.data()),
                                         static_cast<int>(text.size()));
        blob.resize(size < 0 ? 0 : static_cast<std::size_t>(size) - padding);
    }
    Sha256 hash{};
    EVP_Digest(blob.data(), blob.size(), hash.data(), nullptr, EVP_sha256(), nullptr);
    return hash;
}

/// What OpenSSL prints of something.
template <typename Print> std::string printed(const Print& print) {
    const std::unique_ptr<BIO, BioDelete> bio(BIO_new(BIO_s_mem()));
    print(bio.get());
    char* text = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &text);
    return {text, static_cast<std::size_t>(size)};
}

/// The names for which the certificate was made out: the alternative ones, else that of its
/// subject.
std::string namesOf(const X509& certificate) {
    const int place = X509_get_ext_by_NID(&certificate, NID_subject_alt_name, -1);
    return printed([&](BIO* bio) {
        if (place < 0) {
            X509_NAME_print_ex(bio, X509_get_subject_name(&certificate), 0, XN_FLAG_ONELINE);
        } else {
            X509V3_EXT_print(bio, X509_get_ext(&certificate, place), 0, 0);
        }
    });
}

} // namespace

// The name is verified with the rest, so that what is trusted needs no right name either.
void HostVerifier::watch(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 0L);
    useAuthoritiesInOneFile(easy);
    if (const char* const authorities = std::getenv("SSL_CERT_FILE"); authorities != nullptr) {
        curl_easy_setopt(easy, CURLOPT_CAINFO, authorities);
    }
    curl_easy_setopt(easy, CURLOPT_SSL_CTX_FUNCTION, &HostVerifier::prepareTls);
    curl_easy_setopt(easy, CURLOPT_SSL_CTX_DATA, this);
    const char* const home = std::getenv("HOME");
    const std::string known = std::string(home == nullptr ? "" : home) + "/.ssh/known_hosts";
    curl_easy_setopt(easy, CURLOPT_SSH_KNOWNHOSTS, known.c_str());
    curl_easy_setopt(easy, CURLOPT_SSH_KEYFUNCTION, &HostVerifier::verifyKey);
    curl_easy_setopt(easy, CURLOPT_SSH_KEYDATA, this);
}

void HostVerifier::refuse(HostIdentity identity) {
    identity.host = login_.host + ":" + std::to_string(login_.port);
    if (!identity.knownSha256) {
        identity.knownSha256 = login_.trusted;
    }
    refused_ = std::move(identity);
}

CURLcode HostVerifier::prepareTls(CURL* /*easy*/, void* context, void* verifier) {
    auto* const tls = static_cast<SSL_CTX*>(context);
    static_cast<HostVerifier*>(verifier)->ended_ = false;
    SSL_CTX_set_app_data(tls, verifier);
    SSL_CTX_set_info_callback(tls, &HostVerifier::followTls);
    SSL_CTX_set_cert_verify_callback(tls, &HostVerifier::verifyCertificate, verifier);
    return CURLE_OK;
}

void HostVerifier::followTls(const SSL* tls, int where, int value) {
    if (where == SSL_CB_READ_ALERT && (value & 0xff) == SSL_AD_CLOSE_NOTIFY) {
        static_cast<HostVerifier*>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(tls)))->ended_ = true;
    }
}

int HostVerifier::verifyCertificate(X509_STORE_CTX* chain, void* verifier) {
    auto& self = *static_cast<HostVerifier*>(verifier);
    const X509* const certificate = X509_STORE_CTX_get0_cert(chain);
    HostIdentity identity;
    X509_digest(certificate, EVP_sha256(), identity.sha256.data(), nullptr);
    const std::string& named = self.login_.host;
    const std::string host = named.starts_with('[') ? named.substr(1, named.size() - 2) : named;
    X509_VERIFY_PARAM* const wanted = X509_STORE_CTX_get0_param(chain);
    if (X509_VERIFY_PARAM_set1_ip_asc(wanted, host.c_str()) != 1) {
        X509_VERIFY_PARAM_set1_host(wanted, host.c_str(), 0);
    }
    if (self.login_.trusted == identity.sha256) {
        X509_STORE_CTX_set_error(chain, X509_V_OK);
        return 1;
    }
    if (X509_verify_cert(chain) == 1) {
        return 1;
    }
    identity.kind = HostIdentity::Kind::Certificate;
    identity.reason = X509_verify_cert_error_string(X509_STORE_CTX_get_error(chain));
    identity.names = {namesOf(*certificate)};
    const auto date = [](const ASN1_TIME* time) {
        return printed([time](BIO* bio) { ASN1_TIME_print(bio, time); });
    };
    identity.validFrom = date(X509_get0_notBefore(certificate));
    identity.validUntil = date(X509_get0_notAfter(certificate));
    self.refuse(std::move(identity));
    return 0;
}

int HostVerifier::verifyKey(CURL* /*easy*/, const curl_khkey* known, const curl_khkey* found,
                            curl_khmatch match, void* verifier) {
    auto& self = *static_cast<HostVerifier*>(verifier);
    HostIdentity identity;
    identity.kind = HostIdentity::Kind::Key;
    identity.sha256 = hashOf(*found);
    if (match == CURLKHMATCH_OK || self.login_.trusted == identity.sha256) {
        return CURLKHSTAT_FINE;
    }
    if (match == CURLKHMATCH_MISMATCH && known != nullptr) {
        identity.knownSha256 = hashOf(*known);
    }
    identity.reason =
        match == CURLKHMATCH_MISMATCH ? "the key has changed" : "the key is not known";
    self.refuse(std::move(identity));
    return CURLKHSTAT_REJECT;
}

} // namespace quillmark

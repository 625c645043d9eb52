#include "integration/ftp/EncryptedServers.h"

#include <stdexcept>

#include <pwd.h>
#include <unistd.h>

namespace quillmark::test {

EncryptedServer::EncryptedServer(const std::string& name, CertificateFault fault) {
    login_.port = static_cast<std::int16_t>(freePort());
    if (name == "OpenSSH" || name == "ProFTPD SFTP") {
        login_.encryption = Encryption::Sftp;
        makeKey("host", "");
        name == "OpenSSH" ? startSshd() : startProftpdWithSftp();
        return;
    }
    login_.encryption = name == "ProFTPD implicit" ? Encryption::Implicit : Encryption::Tls;
    makeCertificate(fault);
    name == "vsftpd" ? startVsftpdWithTls()
                     : startProftpdWithTls(login_.encryption == Encryption::Implicit);
}

void EncryptedServer::tool(const std::vector<std::string>& words) const {
    const Finished finished = run({words, settings_.path(), {}});
    if (finished.status != 0) {
        throw std::runtime_error(words[0] + ": " + finished.err);
    }
}

void EncryptedServer::makeCertificate(CertificateFault fault) {
    const auto request = [this](const std::string& name, std::vector<std::string> more) {
        std::vector<std::string> words = {"openssl", "req",      "-newkey",
                                          "ec",      "-pkeyopt", "ec_paramgen_curve:P-256",
                                          "-nodes",  "-subj",    "/CN=" + name};
        words.insert(words.end(), more.begin(), more.end());
        tool(words);
    };
    request("Authority of a test",
            {"-x509", "-days", "2", "-keyout", "authority.key", "-out", "authority.pem"});
    const std::string names = fault == CertificateFault::OtherName
                                  ? "subjectAltName=DNS:other.example"
                                  : "subjectAltName=DNS:localhost,IP:127.0.0.1,IP:::1";
    if (fault == CertificateFault::SelfSigned) {
        request("host.example", {"-x509", "-days", "2", "-addext", names, "-keyout", "host.key",
                                 "-out", "host.pem"});
    } else {
        request("host.example", {"-keyout", "host.key", "-out", "host.request"});
        settings_.write("names", names + "\n");
        tool({"openssl", "x509", "-req", "-in", "host.request", "-CA", "authority.pem", "-CAkey",
              "authority.key", "-CAcreateserial", "-extfile", "names", "-out", "host.pem", "-days",
              fault == CertificateFault::Expired ? "-1" : "2"});
    }
    const std::string shown =
        run({{"openssl", "x509", "-in", file("host.pem"), "-noout", "-fingerprint", "-sha256"}})
            .out;
    fingerprint_ = shown.substr(shown.find('=') + 1, 95);
}

void EncryptedServer::makeKey(const std::string& name, const std::string& passphrase) {
    // One round over the pass phrase: the library that reads the key takes a second for the usual.
    tool({"ssh-keygen", "-q", "-a", "1", "-t", "ed25519", "-N", passphrase, "-C", "", "-f", name});
    if (name == "host") {
        const std::string shown = run({{"ssh-keygen", "-lf", file("host.pub")}}).out;
        fingerprint_ = shown.substr(shown.find("SHA256:"), 50);
    }
}

void EncryptedServer::startVsftpdWithTls() {
    startVsftpd("ssl_enable=YES\nallow_anon_ssl=YES\nforce_anon_logins_ssl=YES\n"
                "force_anon_data_ssl=YES\nrequire_ssl_reuse=YES\nssl_ciphers=HIGH\n"
                "rsa_cert_file=" +
                file("host.pem") + "\nrsa_private_key_file=" + file("host.key") + "\n");
}

void EncryptedServer::startProftpdWithTls(bool implicit) {
    startProftpd("ModulePath " PROFTPD_MODULES "\nLoadModule mod_tls.c\nTLSEngine on\n"
                 "TLSRequired on\nTLSECCertificateFile " +
                 file("host.pem") + "\nTLSECCertificateKeyFile " + file("host.key") + "\n" +
                 (implicit ? "TLSOptions UseImplicitSSL\n" : ""));
}

void EncryptedServer::startProftpdWithSftp() {
    startProftpd("ModulePath " PROFTPD_MODULES "\nLoadModule mod_sftp.c\nSFTPEngine on\n"
                 "SFTPAuthMethods password\nSFTPHostKey " +
                 file("host") + "\n");
}

// Whoever starts it logs in. As root it wants a user and a folder of its own, which an installed
// one brings along.
void EncryptedServer::startSshd() {
    const passwd* me = getpwuid(getuid());
    login_.userName = me->pw_name;
    login_.password = {};
    login_.keyPassphrase = "open sesame";
    makeKey("user", login_.keyPassphrase);
    login_.keyFile = file("user");
    const std::string numbers =
        ":x:" + std::to_string(getuid()) + ":" + std::to_string(getgid()) + "::";
    const auto users =
        settings_.write("users", me->pw_name + numbers + settings_.path().string() +
                                     ":/bin/sh\nsshd:x:65533:65534::/run/sshd:/usr/sbin/nologin\n");
    if (geteuid() == 0) {
        std::filesystem::create_directory("/run/sshd");
    }
    const auto settings = settings_.write(
        "sshd_config", "ListenAddress 127.0.0.1\nPort " + std::to_string(login_.port) +
                           "\nHostKey " + file("host") + "\nAuthorizedKeysFile " +
                           file("user.pub") +
                           "\nStrictModes no\nUsePAM no\nPidFile none\nPermitRootLogin yes\n"
                           "PasswordAuthentication no\nKbdInteractiveAuthentication no\n"
                           "MaxStartups 100\nSubsystem sftp " SFTP_SERVER "\n");
    start({{SSHD, "-D", "-e", "-f", settings.string()},
           {},
           {{"LD_PRELOAD", "libnss_wrapper.so"},
            {"NSS_WRAPPER_PASSWD", users.string()},
            {"NSS_WRAPPER_GROUP", "/etc/group"}}});
}

} // namespace quillmark::test

#pragma once

#include "integration/ftp/Servers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmark::test {

/// What is wrong with the certificate that a server shows.
enum class CertificateFault { None, OtherName, Expired, SelfSigned };

/// A server that takes no login in the clear; its certificate or key is made when it starts. By
/// name: "vsftpd", which demands that the data connection resumes the TLS session of the control
/// connection, "ProFTPD", "ProFTPD implicit", "ProFTPD SFTP", which asks for the password, and
/// "OpenSSH", which asks for a key. Paths are those of the machine.
class EncryptedServer : public Server {
public:
    explicit EncryptedServer(const std::string& name,
                             CertificateFault fault = CertificateFault::None);

    /// Of its certificate or key, as openssl or ssh-keygen prints it.
    const std::string& fingerprint() const { return fingerprint_; }
    /// The authority that signed the certificate, a PEM file.
    std::string authority() const { return (settings_.path() / "authority.pem").string(); }
    /// The public half of its host key, as a line of known_hosts ends: "ssh-ed25519 AAAA...".
    std::string hostKey() const { return settings_.read("host.pub"); }

private:
    void makeCertificate(CertificateFault fault);
    void makeKey(const std::string& name, const std::string& passphrase);
    void startVsftpdWithTls();
    void startProftpdWithTls(bool implicit);
    void startProftpdWithSftp();
    void startSshd();
    std::string file(const std::string& name) const { return (settings_.path() / name).string(); }
    void tool(const std::vector<std::string>& words) const;

    std::string fingerprint_;
};

/// What a user of the command tells of the host.
inline std::vector<std::string> wordsOf(const FtpLogin& login) {
    std::vector<std::string> words = {
        "--host", login.host,     "--port",       std::to_string(login.port),
        "--user", login.userName, "--encryption", std::string(nameOf(login.encryption))};
    if (!login.keyFile.empty()) {
        words.insert(words.end(), {"--key", login.keyFile});
    }
    return words;
}
/// The password, or that of the key.
inline const std::string& secretOf(const FtpLogin& login) {
    return login.keyFile.empty() ? login.password : login.keyPassphrase;
}

/// The servers by name, for tests that run over each.
inline std::vector<std::string> encryptedServers() {
    return {"vsftpd", "ProFTPD", "ProFTPD implicit", "ProFTPD SFTP", "OpenSSH"};
}
/// The name of such a server as a part of a test's name.
inline std::string nameOfRow(const testing::TestParamInfo<std::string>& row) {
    std::string name = row.param;
    std::erase(name, ' ');
    return name;
}

} // namespace quillmark::test

// Whether the servers of the other tests are what they are said to be, asked by curl's command.

#include "integration/ftp/EncryptedServers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using testing::HasSubstr;

class EncryptedServers : public testing::TestWithParam<std::string> {
protected:
    EncryptedServers() {
        tree.write("page.html", "a page");
        tree.write(".ssh/known_hosts", "other.example " + server.hostKey());
    }

    Finished curl(std::vector<std::string> options) const {
        const FtpLogin& login = server.login();
        const bool sftp = login.encryption == Encryption::Sftp;
        const bool implicit = login.encryption == Encryption::Implicit;
        const std::string scheme = sftp ? "sftp" : (implicit ? "ftps" : "ftp");
        std::vector<std::string> words = {"curl", "-sS", "-u",
                                          login.userName + ":" + login.password};
        words.insert(words.end(), options.begin(), options.end());
        words.push_back(scheme + "://127.0.0.1:" + std::to_string(login.port) + "/" +
                        tree.path().string() + "/page.html");
        return run({words, {}, {{"HOME", tree.path().string()}}});
    }
    /// What makes curl trust the server, and the server trust curl.
    std::vector<std::string> credentials() const {
        const FtpLogin& login = server.login();
        if (login.encryption != Encryption::Sftp) {
            return {"--ssl-reqd", "--cacert", server.authority()};
        }
        std::string hash = server.fingerprint().substr(7);
        std::vector<std::string> options = {"--hostpubsha256", hash};
        if (!login.keyFile.empty()) {
            options.insert(options.end(), {"--key", login.keyFile, "--pass", login.keyPassphrase});
        }
        return options;
    }

    EncryptedServer server{GetParam()};
    TempFolder tree;
};

TEST_P(EncryptedServers, ServeWhoTrustsThem) {
    const Finished finished = curl(credentials());
    EXPECT_EQ(finished.out, "a page") << finished.err;
}

TEST_P(EncryptedServers, AreNotTrustedByOthersAndRefuseTheClear) {
    const Finished finished = curl({});
    EXPECT_NE(finished.status, 0);
    EXPECT_EQ(finished.out, "");
}

INSTANTIATE_TEST_SUITE_P(Encrypted, EncryptedServers, testing::ValuesIn(encryptedServers()),
                         [](const auto& row) {
                             std::string name = row.param;
                             name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
                             return name;
                         });

TEST(EncryptedServer, ShowsTheCertificateThatIsAskedFor) {
    for (const auto& [fault, reason] : std::vector<std::pair<CertificateFault, std::string>>{
             {CertificateFault::OtherName, "subject name matches target host name"},
             {CertificateFault::Expired, "certificate has expired"},
             {CertificateFault::SelfSigned, "self-signed certificate"}}) {
        const EncryptedServer server("ProFTPD", fault);
        const Finished finished =
            run({{"curl", "-sS", "--ssl-reqd", "--cacert", server.authority(),
                  "ftp://127.0.0.1:" + std::to_string(server.login().port) + "/"}});
        EXPECT_THAT(finished.err, HasSubstr(reason));
        EXPECT_EQ(server.fingerprint().size(), 95U);
    }
}

} // namespace
} // namespace quillmark::test

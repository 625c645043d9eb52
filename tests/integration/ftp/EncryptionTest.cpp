// The conversation over TLS and SFTP, and whom it is held with.

#include "integration/ftp/Client.h"
#include "integration/ftp/EncryptedServers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// The home folder of the user, whose known_hosts counts.
struct Home {
    Home() { setenv("HOME", folder.path().c_str(), 1); }
    ~Home() { setenv("HOME", before.c_str(), 1); }
    void know(const EncryptedServer& server, const std::string& key) const {
        folder.write(".ssh/known_hosts",
                     "[127.0.0.1]:" + std::to_string(server.login().port) + " " + key);
    }

    std::string before = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
    TempFolder folder;
};

class Encrypted : public testing::TestWithParam<std::string> {
protected:
    Encrypted() {
        login.trusted = fingerprintIn(server.fingerprint());
        tree.write("index.html", "<a href=\"x\">\r\n\r\n\n");
        tree.write("sub/deep page.html", std::string(300'000, 'd'));
        tree.write("empty.html", "");
    }
    std::string path(const std::string& name) const { return (tree.path() / name).string(); }

    EncryptedServer server{GetParam()};
    FtpLogin login = server.login();
    TempFolder tree;
    Home home;
    Client client;
};

TEST_P(Encrypted, ListsRetrievesAndDeletes) {
    login.connections = 3;
    client.ftp.connect(login);
    ASSERT_TRUE(client.ftp.connected()) << testing::PrintToString(client.messages.normals);
    EXPECT_THAT(client.list(path("")), Contains(HasSubstr(" index.html")));
    EXPECT_THAT(client.lines, Contains(StartsWith("d")));
    EXPECT_THAT(client.list(path("sub/")), Contains(HasSubstr(" deep page.html")));
    const Lines names = {"index.html", "sub/deep page.html", "empty.html", "index.html"};
    for (const std::string& name : names) {
        client.ftp.expectFile(path(name));
    }
    for (const std::string& name : names) {
        EXPECT_TRUE(client.retrieve(path(name))) << name;
        EXPECT_EQ(client.page(), tree.read(name)) << name;
    }
    EXPECT_FALSE(client.retrieve(path("missing.html")));
    // One more than there are connections: one of them fails twice.
    for (const char* const folder : {"sub/", "sub", "sub/", "sub"}) {
        EXPECT_FALSE(client.retrieve(path(folder)));
    }
    EXPECT_THROW(client.ftp.deleteFile(path("missing.html")), Failure);
    EXPECT_THROW(client.ftp.removeDirectory(path("sub/")), Failure);
    client.ftp.deleteFile(path("sub/deep page.html"));
    client.ftp.removeDirectory(path("sub/"));
    EXPECT_FALSE(std::filesystem::exists(tree.path() / "sub"));
    client.ftp.disconnect();
    EXPECT_EQ(client.messages.normals, Lines());
    EXPECT_TRUE(client.trust.asked.empty());
    EXPECT_THAT(client.trace.texts, Each(Not(HasSubstr("secret"))));
}

TEST_P(Encrypted, WhoIsNotVouchedForIsAskedAboutOnceAndGetsNoPassword) {
    login.trusted.reset();
    client.ftp.connect(login);
    EXPECT_FALSE(client.ftp.connected());
    ASSERT_EQ(client.trust.asked.size(), 1U);
    const HostIdentity& identity = client.trust.asked[0];
    EXPECT_EQ(identity.printed(identity.sha256), server.fingerprint());
    EXPECT_EQ(identity.host, "127.0.0.1:" + std::to_string(login.port));
    EXPECT_THAT(client.trace.texts, Each(Not(StartsWith("PASS"))));
    EXPECT_EQ(client.messages.normals, Lines{"Host: " + identity.reason});
    client.trust.answer = true;
    client.ftp.connect(login);
    EXPECT_TRUE(client.ftp.connected());
    EXPECT_TRUE(client.retrieve(path("index.html")));
    EXPECT_EQ(client.trust.asked.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Encrypted, Encrypted, testing::ValuesIn(encryptedServers()), nameOfRow);

struct CertificateRow {
    CertificateFault fault;
    bool isVouchedFor; ///< By an authority of the system.
    std::string reason;
};

TEST(EncryptedHost, ACertificateIsRefusedForWhatIsWrongWithIt) {
    for (const CertificateRow& row :
         {CertificateRow{CertificateFault::OtherName, false,
                         "unable to get local issuer certificate"},
          {CertificateFault::SelfSigned, false, "self-signed certificate"},
          {CertificateFault::None, true, ""},
          {CertificateFault::OtherName, true, "IP address mismatch"},
          {CertificateFault::Expired, true, "certificate has expired"}}) {
        SCOPED_TRACE(row.reason);
        const EncryptedServer server("ProFTPD", row.fault);
        Client client;
        if (row.isVouchedFor) {
            setenv("SSL_CERT_FILE", server.authority().c_str(), 1);
        }
        client.ftp.connect(server.login());
        unsetenv("SSL_CERT_FILE");
        EXPECT_EQ(client.ftp.connected(), row.reason.empty());
        ASSERT_EQ(client.trust.asked.size(), row.reason.empty() ? 0U : 1U);
        for (const HostIdentity& identity : client.trust.asked) {
            EXPECT_EQ(identity.reason, row.reason);
            EXPECT_FALSE(identity.names.empty());
            EXPECT_THAT(identity.validUntil, HasSubstr("GMT"));
        }
    }
}

TEST(EncryptedHost, AKeyInKnownHostsIsBelievedAndAChangedOneNever) {
    const Home home;
    const EncryptedServer server("ProFTPD SFTP");
    const EncryptedServer other("ProFTPD SFTP");
    home.know(server, server.hostKey());
    Client client;
    client.ftp.connect(server.login());
    EXPECT_TRUE(client.ftp.connected()) << testing::PrintToString(client.messages.normals);
    home.know(server, other.hostKey());
    client.trust.answer = true;
    client.ftp.connect(server.login());
    EXPECT_FALSE(client.ftp.connected());
    ASSERT_EQ(client.trust.asked.size(), 1U);
    const HostIdentity& identity = client.trust.asked[0];
    EXPECT_TRUE(identity.keyChanged());
    EXPECT_EQ(identity.printed(identity.sha256), server.fingerprint());
    EXPECT_EQ(identity.printed(*identity.knownSha256), other.fingerprint());
    EXPECT_THAT(client.messages.normals, ElementsAre("Host: the key has changed"));
}

TEST(EncryptedHost, APageThatEndsWithoutTlsSayingSoIsNoWholePage) {
    for (const bool isCut : {false, true}) {
        const FaultServer server(isCut ? "cut-tls" : "tls");
        FtpLogin login = server.login();
        login.encryption = Encryption::Tls;
        Client client;
        client.trust.answer = true;
        client.ftp.connect(login);
        ASSERT_TRUE(client.ftp.connected()) << testing::PrintToString(client.messages.normals);
        EXPECT_EQ(client.retrieve("/page"), !isCut);
        EXPECT_EQ(client.folderIsEmpty(), isCut);
        EXPECT_EQ(client.messages.normals,
                  Lines(isCut ? 2U : 0U, "Host: /page was cut short on the way"));
    }
}

TEST(EncryptedHost, ActiveModeOverTlsIsToldToBeNone) {
    FtpLogin login;
    login.host = "127.0.0.1";
    login.encryption = Encryption::Tls;
    login.passiveDisabled = true;
    Client client;
    client.ftp.connect(login);
    EXPECT_THAT(client.messages.normals, ElementsAre(HasSubstr("leave PASV enabled")));
}

TEST(EncryptedHost, AHostThatKnowsNoEncryptionGetsNoLogin) {
    const RealServer server("ProFTPD");
    FtpLogin login = server.login();
    login.encryption = Encryption::Tls;
    Client client;
    client.ftp.connect(login);
    EXPECT_FALSE(client.ftp.connected());
    EXPECT_THAT(client.messages.normals, ElementsAre(StartsWith("Host: 5")));
    EXPECT_THAT(client.trace.texts, Each(Not(StartsWith("USER"))));
}

} // namespace
} // namespace quillmark::test

#include "integration/ftp/Client.h"
#include "integration/ftp/EncryptedServers.h"
#include "integration/ftp/Servers.h"
#include "web/site/HostListing.h"
#include "web/site/HostSource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// "name size" of each entry; none where the host has no facts.
Lines factsOf(const Server& server, const std::string& folder) {
    Client client;
    client.ftp.connect(server.login());
    web::HostListing listing;
    const auto take = [&listing](std::string_view line) { listing.takeFacts(line); };
    const bool offered = client.ftp.listFacts(folder, take);
    EXPECT_EQ(client.messages.normals, Lines());
    EXPECT_EQ(offered, !listing.entries.empty());
    Lines entries;
    for (const SiteEntry& entry : listing.entries) {
        entries.push_back(entry.name + " " + std::to_string(entry.size));
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

TEST(Facts, AreListedWhereTheHostHasThem) {
    TempFolder tree;
    tree.write("my page.html", "12");
    tree.write(" caf\xE9", "123");
    const std::string folder = tree.path().string() + "/";
    EXPECT_THAT(factsOf(RealServer("ProFTPD"), folder),
                ElementsAre(" caf\xE9 3", "my page.html 2"));
    EXPECT_THAT(factsOf(RealServer("vsftpd"), folder), IsEmpty());
}

TEST(Facts, AreNotMissedWhereANameIsOfTwoLines) {
    const EncryptedServer server("OpenSSH");
    TempFolder tree;
    tree.write("page.html", "");
    tree.write("two\nlines", "");
    DiskAdapter disk;
    Client client;
    client.trust.answer = true;
    client.ftp.connect(server.login());
    const auto entries = web::HostSource(client.ftp, disk, "").list(tree.path().string() + "/");
    EXPECT_TRUE(std::any_of(entries.begin(), entries.end(),
                            [](const SiteEntry& entry) { return entry.name == "page.html"; }));
}

} // namespace
} // namespace quillmark::test

#include "check/HostDelete.h"
#include "integration/ftp/Client.h"
#include "integration/ftp/Servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

Lines namesIn(const Lines& lines) {
    Lines names;
    names.reserve(lines.size());
    for (const std::string& line : lines) {
        names.push_back(line.substr(0, 1) + line.substr(line.rfind(' ') + 1));
    }
    return names;
}

class RealServers : public testing::TestWithParam<RealSetting> {
protected:
    RealServers() : server(GetParam().server, GetParam().passiveDisabled, GetParam().address) {
        tree.write("index.html", "<a href=\"x\">\r\n\r\n\n");
        tree.write("sub/deep.html", std::string(300'000, 'd'));
        tree.write("empty.html", "");
        client.ftp.connect(server.login());
    }
    void TearDown() override { EXPECT_EQ(client.messages.normals, Lines()); }

    std::string path(const std::string& name) const { return (tree.path() / name).string(); }

    RealServer server;
    TempFolder tree;
    Client client;
};

TEST_P(RealServers, ListsAndRetrievesOverOneConnection) {
    ASSERT_TRUE(client.ftp.connected());
    EXPECT_THAT(namesIn(client.list(path(""))),
                UnorderedElementsAre("-index.html", "-empty.html", "dsub"));
    EXPECT_THAT(namesIn(client.list(path("sub/"))), ElementsAre("-deep.html"));
    for (const char* name : {"index.html", "sub/deep.html", "empty.html"}) {
        EXPECT_TRUE(client.retrieve(path(name))) << name;
        EXPECT_EQ(client.page(), tree.read(name)) << name;
    }
    client.ftp.disconnect();
    EXPECT_EQ(client.trace.count("PASS"), 1);
    EXPECT_EQ(client.trace.count("TYPE A") + client.trace.count("TYPE I"), 2);
    EXPECT_EQ(client.trace.count("QUIT"), 1);
}

TEST_P(RealServers, SendsEveryByteOfAPath) {
    for (const std::string name :
         {"my page.html", "100%.html", "a#b?c.html", "x;type=a", "\xfc.html", "-l", "tab\there",
          "%2F", "\xc3\xbc", "a\"b'c&d", "~", "back\\slash"}) {
        tree.write(name, name);
        EXPECT_TRUE(client.retrieve(path(name))) << name;
        EXPECT_EQ(client.page(), name);
        tree.write("d/" + name + "/inside", "");
        EXPECT_THAT(namesIn(client.list(path("d/" + name + "/"))), ElementsAre("-inside")) << name;
    }
}

TEST_P(RealServers, DeletesAndLivesThroughRefusals) {
    EXPECT_FALSE(client.retrieve(path("missing.html")));
    EXPECT_FALSE(client.retrieve(path("sub/")));
    EXPECT_FALSE(client.retrieve(""));
    EXPECT_TRUE(client.folderIsEmpty());
    EXPECT_THROW(client.ftp.deleteFile(path("missing.html")), Failure);
    EXPECT_THROW(client.ftp.removeDirectory(path("sub/")), Failure);
    client.ftp.deleteFile(path("sub/deep.html"));
    client.ftp.removeDirectory(path("sub/"));
    EXPECT_FALSE(std::filesystem::exists(tree.path() / "sub"));
    EXPECT_EQ(client.trace.count("PASS"), 1);
}

INSTANTIATE_TEST_SUITE_P(Ftp, RealServers, testing::ValuesIn(realSettings()),
                         [](const auto& row) { return row.param.name; });

TEST(HostDelete, TellsWhatItDoesOverAConnectionOfItsOwn) {
    const RealServer server("ProFTPD");
    TempFolder tree;
    const std::string page = tree.write("sub/page.html", "x").string();
    const std::string directory = (tree.path() / "sub").string() + "/";
    Profile profile;
    setLogin(profile, server.login());
    Client client;
    EXPECT_THROW(deleteOnHost(client.ftp, client.messages, profile, directory), Failure);
    EXPECT_FALSE(client.ftp.connected());
    deleteOnHost(client.ftp, client.messages, profile, page);
    deleteOnHost(client.ftp, client.messages, profile, directory);
    profile.USER_PASSWORD = "wrong";
    deleteOnHost(client.ftp, client.messages, profile, page);
    const std::string attempt = "Attempting to delete file ";
    EXPECT_THAT(client.messages.normals,
                ElementsAre(attempt + directory, attempt + page, "Delete completed",
                            attempt + directory, "Delete completed", attempt + page,
                            "Host: 530 Login incorrect.", "Unable to connect"));
    EXPECT_TRUE(std::filesystem::is_empty(tree.path()));
}

} // namespace

} // namespace quillmark::test

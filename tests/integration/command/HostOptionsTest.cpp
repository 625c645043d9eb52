#include "integration/command/CommandBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const std::string Fingerprint = "SHA256:47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU";

/// What "profile show" says of these keys.
std::string shown(const CommandBench& bench, const std::string& keys) {
    std::istringstream lines(bench.check({"profile", "show", "Host"}).out);
    std::string found;
    for (std::string line; std::getline(lines, line);) {
        if (keys.find(line.substr(0, line.find('='))) != std::string::npos) {
            found += line + "\n";
        }
    }
    return found;
}

Finished save(const CommandBench& bench, Words words) {
    words.insert(words.begin(), {"profile", "save", "Host", "--host", "127.0.0.1"});
    return bench.check(words);
}

TEST(HostOptions, ThePortFollowsTheEncryptionUntilSomebodyMovesIt) {
    const CommandBench bench;
    struct Row {
        Words words;
        std::string port;
    };
    const std::vector<Row> rows = {
        {{}, "21"},
        {{"--encryption", "sftp"}, "22"},
        {{"--encryption", "implicit"}, "990"},
        {{"--encryption", "tls"}, "21"},
        {{"--encryption", "sftp", "--port", "21"}, "21"},
        {{"--encryption", "implicit"}, "21"},
        {{"--port", "990"}, "990"},
        {{"--encryption", "none"}, "21"},
        {{"--encryption", "sftp", "--set", "HOST_PORT=2222"}, "2222"},
        {{"--set", "ENCRYPTION=tls"}, "2222"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(save(bench, row.words).status, 0);
        EXPECT_EQ(shown(bench, "HOST_PORT"), "HOST_PORT=" + row.port + "\n");
    }
}

TEST(HostOptions, AreKeptInTheProfile) {
    const CommandBench bench;
    bench.workingFolder.write("key", "");
    EXPECT_EQ(save(bench, {"--encryption", "sftp", "--connections", "8", "--trust", Fingerprint,
                           "--key", "key"})
                  .status,
              0);
    EXPECT_EQ(shown(bench, "ENCRYPTION CONNECTIONS TRUSTED KEY_FILE"),
              "ENCRYPTION=sftp\nCONNECTIONS=8\nTRUSTED=" + Fingerprint +
                  "\nKEY_FILE=" + (bench.workingFolder.path() / "key").string() + "\n");
}

TEST(HostOptions, AreRefusedWhereTheyWouldDoNothing) {
    const CommandBench bench;
    struct Row {
        Words words;
        std::string refusal;
    };
    const std::vector<Row> rows = {
        {{"--encryption", "ssl"}, "ssl not in {none,tls,implicit,sftp}"},
        {{"--connections", "17"}, "--connections"},
        {{"--encryption", "tls", "--trust", "yes"}, "takes a SHA-256"},
        {{"--trust", Fingerprint}, "--trust needs --encryption tls, implicit or sftp"},
        {{"--encryption", "tls", "--key", "key"}, "--key needs --encryption sftp"},
    };
    for (const Row& row : rows) {
        const Finished finished = save(bench, row.words);
        EXPECT_EQ(finished.status, 2);
        EXPECT_THAT(finished.err, HasSubstr(row.refusal));
    }
    const Finished finished =
        bench.check({"--host", "127.0.0.1", "--user", "me", "--start", "/index.html",
                     "--encryption", "sftp", "--key", "missing"});
    EXPECT_EQ(finished.status, 2);
    EXPECT_THAT(finished.err, HasSubstr("missing\" cannot be read"));
}

TEST(HostOptions, DoNotComeFromAFileThatCameWithTheSite) {
    const CommandBench bench;
    for (const char* line : {"encryption = 'none'", "trust = 'x'", "key = 'x'",
                             "set = ['ENCRYPTION=none']", "set = ['TRUSTED=x']"}) {
        bench.site.write("quillmark.toml", line);
        const Finished finished = bench.check({bench.start()});
        EXPECT_EQ(finished.status, 2);
        EXPECT_THAT(finished.err, HasSubstr("cannot stand in a file that may have come")) << line;
    }
}

TEST(HostOptions, AskForThePasswordOfTheKeyFile) {
    const CommandBench bench;
    bench.workingFolder.write("key", "no key");
    const Words words = {"--host",      "127.0.0.1",    "--port", "1",      "--start",
                         "/index.html", "--encryption", "sftp",   "--user", "me"};
    Words withKey = words;
    withKey.insert(withKey.end(), {"--key", "key"});
    for (const auto& [asked, question] : std::vector<std::pair<Words, std::string>>{
             {words, "Password of me at 127.0.0.1 (empty if your SSH agent has the key): "},
             {withKey, "key (empty if it has none): "}}) {
        Terminal terminal(bench.command(asked), 200);
        ASSERT_TRUE(terminal.waitFor(question)) << terminal.shown();
        EXPECT_FALSE(terminal.echoes());
        EXPECT_TRUE(terminal.type("secret\n"));
        EXPECT_EQ(terminal.wait(), 3) << "nobody listens there";
        EXPECT_THAT(terminal.shown(), Not(HasSubstr("secret")));
        Terminal givenUp(bench.command(asked), 200);
        ASSERT_TRUE(givenUp.waitFor(question));
        EXPECT_TRUE(givenUp.type("\x03"));
        EXPECT_EQ(givenUp.wait(), 2);
    }
}

} // namespace
} // namespace quillmark::test

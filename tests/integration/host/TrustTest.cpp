#include "integration/command/CommandBench.h"
#include "integration/ftp/EncryptedServers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A check of a small site on an encrypted host, by somebody who knows no host yet.
class Trust : public testing::TestWithParam<std::string> {
protected:
    Trust() {
        bench.writeBrokenSite();
        if (!login.keyFile.empty()) {
            std::filesystem::create_symlink(login.keyFile, home.path() / "key");
            login.keyFile = "~/key";
        }
    }

    Command command(const Words& more) const {
        Words words = wordsOf(login);
        words.insert(words.end(), {"--start", bench.start()});
        words.insert(words.end(), more.begin(), more.end());
        Command command = bench.command(words);
        command.environment["HOME"] = home.path();
        command.environment["SSH_AUTH_SOCK"] = "";
        command.environment["QUILLMARK_PASSWORD"] = secret();
        return command;
    }
    const std::string& secret() const { return secretOf(login); }
    bool sftp() const { return login.encryption == Encryption::Sftp; }

    EncryptedServer server{GetParam()};
    FtpLogin login = server.login();
    CommandBench bench;
    TempFolder home;
};

TEST_P(Trust, IsAskedForByTheCommandAndGivenByAnOption) {
    const Finished refused = run(command({}));
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.err, HasSubstr("--trust " + server.fingerprint() + "\n"));
    EXPECT_THAT(refused.err, HasSubstr(sftp() ? "is not known" : "is refused: "));
    const Finished trusted =
        run(command({"--trust", server.fingerprint(), "--list", "GetFileList"}));
    EXPECT_EQ(trusted.status, 1) << trusted.err;
    EXPECT_THAT(trusted.out, HasSubstr("index.html"));
    const std::string other = sftp() ? keyFingerprint({}) : certificateFingerprint({});
    const Finished mistaken = run(command({"--trust", other}));
    EXPECT_EQ(mistaken.status, 3);
    EXPECT_THAT(mistaken.err, HasSubstr(other));
    EXPECT_THAT(mistaken.err, HasSubstr(server.fingerprint()));
}

TEST_P(Trust, KeepsPasswordsToItself) {
    Command save = command({});
    save.words.insert(save.words.begin() + 1, {"profile", "save", "Host"});
    ASSERT_EQ(run(save).status, 0);
    const std::vector<Words> runs = {{"--trust", server.fingerprint(), "-v", "--set", "LOG_FILE=1",
                                      "--set", "DEBUG=1", "--trace", "trace", "--report", "report",
                                      "--json", "json"},
                                     {"-v", "--trace", "trace.refused"}};
    for (const Words& words : runs) {
        const Finished finished = run(command(words));
        EXPECT_THAT(finished.out + finished.err, Not(HasSubstr(secret())));
    }
    EXPECT_THAT(bench.workingFolder.read("trace"), Not(testing::IsEmpty()));
    for (const TempFolder* folder : {&bench.workingFolder, &bench.program, &home}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder->path())) {
            EXPECT_THAT(folder->read(entry.path()), Not(HasSubstr(secret()))) << entry.path();
        }
    }
}

/// The same over SFTP, whose hosts are known by their keys.
class KnownHosts : public Trust {};

TEST_P(KnownHosts, NeverTakesAKeyThatChanged) {
    const EncryptedServer before("OpenSSH");
    home.write(".ssh/known_hosts",
               "[127.0.0.1]:" + std::to_string(server.login().port) + " " + before.hostKey());
    const Finished refused = run(command({}));
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.err, HasSubstr("has changed"));
    EXPECT_THAT(refused.err, HasSubstr(before.fingerprint()));
    EXPECT_THAT(refused.err, HasSubstr(server.fingerprint()));
    EXPECT_THAT(refused.err, Not(HasSubstr("--trust")));
}

INSTANTIATE_TEST_SUITE_P(Host, Trust, testing::ValuesIn(encryptedServers()), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Host, KnownHosts, testing::Values("ProFTPD SFTP", "OpenSSH"), nameOfRow);

} // namespace
} // namespace quillmark::test

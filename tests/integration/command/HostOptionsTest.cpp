#include "integration/command/CommandBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

/// One profile is saved again and again: the port follows the encryption until somebody moves it.
TEST(HostOptions, AreKeptInTheProfile) {
    const CommandBench bench;
    const std::string key = bench.workingFolder.write("key", "").string();
    const std::vector<std::pair<Words, std::string>> rows = {
        {{}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp"}, "HOST_PORT=22\n"},
        {{"--encryption", "implicit"}, "HOST_PORT=990\n"},
        {{"--encryption", "tls"}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp", "--port", "21"}, "HOST_PORT=21\n"},
        {{"--encryption", "implicit"}, "HOST_PORT=21\n"},
        {{"--port", "990"}, "HOST_PORT=990\n"},
        {{"--encryption", "none"}, "HOST_PORT=21\n"},
        {{"--encryption", "sftp", "--set", "HOST_PORT=2222"}, "HOST_PORT=2222\n"},
        {{"--set", "ENCRYPTION=tls"}, "HOST_PORT=2222\n"},
        {{"--encryption", "sftp", "--connections", "8", "--trust", Fingerprint, "--key", "key"},
         "ENCRYPTION=sftp\nCONNECTIONS=8\nTRUSTED=" + Fingerprint + "\nKEY_FILE=" + key + "\n"},
    };
    for (const auto& [words, shown] : rows) {
        Words save = {"profile", "save", "Host", "--host", "127.0.0.1"};
        save.insert(save.end(), words.begin(), words.end());
        EXPECT_EQ(bench.check(save).status, 0);
        EXPECT_THAT(bench.check({"profile", "show", "Host"}).out, testing::HasSubstr(shown));
    }
}

} // namespace
} // namespace quillmark::test

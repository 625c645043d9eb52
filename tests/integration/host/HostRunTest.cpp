#include "integration/command/CommandBench.h"
#include "integration/ftp/EncryptedServers.h"
#include "integration/ftp/Servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class HostRun : public testing::TestWithParam<RealSetting> {
protected:
    HostRun() : server(GetParam().server, GetParam().passiveDisabled) {
        std::filesystem::copy(QUILLMARK_EXAMPLE, bench.site.path(),
                              std::filesystem::copy_options::recursive);
        std::filesystem::remove(bench.site.path() / ".gitattributes");
    }
    Command saveProfile() const {
        const FtpLogin& login = server.login();
        const char* passive = login.passiveDisabled ? "DISABLE_PASV=1" : "DISABLE_PASV=0";
        Words words = wordsOf(login);
        words.insert(words.begin(), {"profile", "save", "Host"});
        words.insert(words.end(),
                     {"--start", bench.start(), "--set", "IGNORE_VALUE=1", "--set", "GET_STATS=1",
                      "--set", "START_COL=30", "--set", "END_COL=43", "--set", passive});
        Command command = bench.command(words);
        command.environment["QUILLMARK_PASSWORD"] = login.password;
        return command;
    }

    RealServer server;
    CommandBench bench;
};

double bytesIn(const std::filesystem::path& folder) {
    double sum = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        sum += entry.is_regular_file() ? static_cast<double>(entry.file_size()) : 0;
    }
    return sum;
}

TEST_P(HostRun, FindsWhatTheLocalRunOfTheSameTreeFinds) {
    auto local = bench.json({"--set", "IGNORECASE=0", bench.start()});
    ASSERT_EQ(run(saveProfile()).status, 0);
    EXPECT_THAT(bench.program.read("Host.pro"), Not(HasSubstr(server.login().password)));
    const Finished result = bench.check({"--profile", "Host", "--set", "IGNORECASE=0", "--trace",
                                         "trace.txt", "--json", "-", "--no-progress"});
    EXPECT_EQ(result.status, 1);
    auto host = nlohmann::json::parse(result.out);
    EXPECT_EQ(host["mode"], "remote");
    EXPECT_EQ(host["baseUrl"], "http://127.0.0.1/");
    EXPECT_EQ(host["statistics"]["hostBytes"], bytesIn(bench.site.path()));
    for (auto* lists : {&local["lists"], &host["lists"]}) {
        lists->erase("FileSizes");
        lists->erase("Message");
    }
    EXPECT_EQ(host["lists"], local["lists"]);
    EXPECT_THAT(result.err, HasSubstr("Starting...\n"));
    EXPECT_THAT(result.err, Not(HasSubstr("Host: ")));
    const std::string trace = bench.workingFolder.read("trace.txt");
    EXPECT_LE(countOf(trace, "PASS\r\n"), 4U);
    EXPECT_EQ(countOf(trace, "RETR "), 13U) << "the start file is tested first";
    EXPECT_EQ(countOf(trace, "LIST "), 8U);
    EXPECT_THAT(trace + result.err, Not(HasSubstr("secret")));
}

TEST_P(HostRun, FindsByTheWebRulesWhatTheLocalRunFinds) {
    const auto site = bench.site.path() / "today";
    std::filesystem::copy(QUILLMARK_EXAMPLE_TODAY, site,
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::copy_symlinks);
    const std::string start = (site / "index.html").string();
    const auto local = bench.json({"--rules", "web", start});
    ASSERT_EQ(run(saveProfile()).status, 0);
    const auto over = [&](const char* connections) {
        return bench.json({"--profile", "Host", "--rules", "web", "--start", start, "--connections",
                           connections});
    };
    const auto host = over("8");
    EXPECT_EQ(over("1"), host);
    EXPECT_EQ(host["mode"], "remote");
    EXPECT_GT(host["findings"].size(), 10U);
    EXPECT_EQ(host["findings"], local["findings"]);
    EXPECT_EQ(host["ignored"], local["ignored"]);
    for (const char* list : {"GetFileList", "ReferenceList", "UnusedList"}) {
        EXPECT_EQ(host["lists"][list], local["lists"][list]) << list;
    }
}

INSTANTIATE_TEST_SUITE_P(Host, HostRun, testing::ValuesIn(realSettings()),
                         [](const auto& row) { return row.param.name; });

class EncryptedHostRun : public testing::TestWithParam<std::string> {};

/// The lists of a check, each in byte order: a host lists its folders in an order of its own.
nlohmann::json sortedLists(nlohmann::json result) {
    result["lists"].erase("FileSizes");
    result["lists"].erase("Message");
    for (auto& list : result["lists"]) {
        std::sort(list.begin(), list.end());
    }
    return result["lists"];
}

TEST_P(EncryptedHostRun, FindsWhatTheLocalRunOfTheSameTreeFinds) {
    const EncryptedServer server(GetParam());
    const FtpLogin& login = server.login();
    CommandBench bench;
    std::filesystem::copy(QUILLMARK_EXAMPLE, bench.site.path(),
                          std::filesystem::copy_options::recursive);
    std::filesystem::remove(bench.site.path() / ".gitattributes");
    Words words = wordsOf(login);
    words.insert(words.end(), {"--trust", server.fingerprint(), "--start", bench.start()});
    for (const Words& rules : {Words{"--set", "IGNORECASE=0"}, Words{"--rules", "web"}}) {
        Words local = rules;
        local.push_back(bench.start());
        Words remote = rules;
        remote.insert(remote.end(), words.begin(), words.end());
        remote.insert(remote.end(), {"--json", "-", "-q"});
        Command command = bench.command(remote);
        command.environment["QUILLMARK_PASSWORD"] = secretOf(login);
        const Finished finished = run(command);
        ASSERT_FALSE(finished.out.empty()) << finished.err;
        const auto expected = bench.json(local);
        const auto found = nlohmann::json::parse(finished.out);
        EXPECT_EQ(sortedLists(found), sortedLists(expected));
        EXPECT_EQ(found.value("findings", nlohmann::json()),
                  expected.value("findings", nlohmann::json()));
    }
}

INSTANTIATE_TEST_SUITE_P(Encrypted, EncryptedHostRun, testing::ValuesIn(encryptedServers()),
                         nameOfRow);

TEST(HostRunRefused, TellsWhyTheLoginFailed) {
    const RealServer server("ProFTPD");
    const CommandBench bench;
    Command command =
        bench.command({"--host", "127.0.0.1", "--port", std::to_string(server.login().port),
                       "--user", "webmaster", "--start", "/index.html", "-v"});
    command.environment["QUILLMARK_PASSWORD"] = "wrong-one";
    const Finished result = run(command);
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.out, HasSubstr("Host: 530 Login incorrect.\n  Unable to connect\n"));
    EXPECT_THAT(result.err + result.out, Not(HasSubstr("wrong-one")));
    command.environment.clear();
    command.environment["QUILLMARK_FOLDER"] = bench.program.path();
    bench.workingFolder.write("password", "secret\r\nmore");
    command.words.insert(command.words.end(), {"--password-file", "password"});
    EXPECT_THAT(run(command).out, HasSubstr("Unable to retrieve start file"));
    std::filesystem::create_symlink("/dev/full", bench.workingFolder.path() / "full");
    command.words.insert(command.words.end(), {"--trace", "full"});
    EXPECT_THAT(run(command).err, HasSubstr("full could not be written: Disk full"));
}

} // namespace
} // namespace quillmark::test

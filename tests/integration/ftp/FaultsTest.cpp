#include "base/Failure.h"
#include "integration/ftp/Client.h"
#include "integration/ftp/Servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace quillmark::test {

namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

const FtpTimeouts Short{400ms, 400ms, 400ms};
const std::string Line = "-rw-r--r--   1 ftp      ftp            14 Jan 01 12:00 ";
const std::string Index = Line + "index.html";
const std::string Page = "<a href=\"x\">\r\n\r\n";
const std::string Unsendable =
    "Host: A text with a line break or a zero byte cannot be sent to the host";

template <typename Row> std::string rowName(const testing::TestParamInfo<Row>& row) {
    std::string name = row.param.scenario;
    std::erase(name, '-');
    return name;
}

struct LoginRow {
    std::string scenario;
    std::string account;
    Texts messages;
};

class Logins : public testing::TestWithParam<LoginRow> {};

TEST_P(Logins, TellWhyThereIsNone) {
    const FaultServer server(GetParam().scenario);
    FtpLogin login = server.login();
    login.account = GetParam().account;
    Client client(Short);
    client.ftp.connect(login);
    EXPECT_EQ(client.ftp.connected(), GetParam().messages.empty());
    EXPECT_EQ(client.messages.texts, GetParam().messages);
    for (const std::string& text : client.trace.texts) {
        EXPECT_EQ(text.find(login.password), std::string::npos) << text;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Ftp, Logins,
    testing::Values(LoginRow{"healthy", "", {}},
                    LoginRow{"login-refused", "", {"Host: 530 Login incorrect."}},
                    LoginRow{"echoing", "", {"Host: 530 no: ***"}},
                    LoginRow{"account-needed", "billing", {}},
                    LoginRow{"account-missing", "", {"Host: 332 account please"}},
                    LoginRow{"account-refused", "billing", {"Host: 530 Account unknown."}},
                    LoginRow{"too-many", "", {"Host: 421 Too many users."}},
                    LoginRow{"silent", "", {"Host: Timeout was reached"}}),
    rowName<LoginRow>);

struct RefusedLogin {
    std::string scenario;
    FtpLogin login;
    std::string message;
};

class LoginTexts : public testing::TestWithParam<RefusedLogin> {};

TEST_P(LoginTexts, ThatCannotBeUsedSendNothing) {
    const FaultServer server("healthy");
    FtpLogin login = GetParam().login;
    login.port = login.port == 21 ? server.login().port : login.port;
    Client client(Short);
    client.ftp.connect(login);
    EXPECT_FALSE(client.ftp.connected());
    EXPECT_EQ(client.messages.texts, Texts{GetParam().message});
    EXPECT_EQ(server.connections(), 0);
}

const std::string WithZero("a\0b", 3);

INSTANTIATE_TEST_SUITE_P(
    Ftp, LoginTexts,
    testing::Values(
        RefusedLogin{"user", {false, "127.0.0.1", 21, "a\rb", "p", ""}, Unsendable},
        RefusedLogin{"password", {false, "127.0.0.1", 21, "u", "p\nDELE x", ""}, Unsendable},
        RefusedLogin{"account", {false, "127.0.0.1", 21, "u", "p", WithZero}, Unsendable},
        RefusedLogin{"host", {false, "127.0.0.1\n", 21, "u", "p", ""}, Unsendable},
        RefusedLogin{
            "path", {false, "127.0.0.1/x", 21, "u", "p", ""}, "Host: Not a host: Bad hostname"},
        RefusedLogin{"port",
                     {false, "127.0.0.1", 0, "u", "p", ""},
                     "Host: Not a host: Port number was not a decimal number between 0 and 65535"},
        RefusedLogin{
            "closed", {false, "127.0.0.1", 1, "u", "p", ""}, "Host: Couldn't connect to server"},
        RefusedLogin{"unknown",
                     {false, "no.invalid", 21, "u", "p", ""},
                     "Host: Couldn't resolve host name"}),
    rowName<RefusedLogin>);

struct ListRow {
    std::string scenario;
    Texts lines;
    Texts messages;
    int connections;
};

class Listings : public testing::TestWithParam<ListRow> {};

TEST_P(Listings, ComeAsTheHostSentThem) {
    const FaultServer server(GetParam().scenario);
    Client client(Short);
    client.ftp.connect(server.login());
    Texts lines;
    bool failed = false;
    try {
        client.ftp.list("/www/", [&](std::string_view line) { lines.emplace_back(line); });
    } catch (const Failure&) {
        failed = true;
    }
    EXPECT_EQ(lines, GetParam().lines);
    EXPECT_EQ(failed, !GetParam().messages.empty());
    EXPECT_EQ(client.messages.texts, GetParam().messages);
    EXPECT_EQ(server.connections(), GetParam().connections);
}

const std::string Control("-rw \x01\x1b[2J\0x", 11);

INSTANTIATE_TEST_SUITE_P(
    Ftp, Listings,
    testing::Values(
        ListRow{"healthy", {Index}, {}, 1}, ListRow{"no-epsv", {Index}, {}, 1},
        ListRow{"bare-lf", {Index}, {}, 1}, ListRow{"no-last-lf", {Index, Index}, {}, 1},
        ListRow{"cr-inside", {"-rw a\rb\r"}, {}, 1},
        ListRow{"blank-names", {Line + "my page.html"}, {}, 1},
        ListRow{"latin-1",
                {Line + "\xfc"
                        "ber.html"},
                {},
                1},
        ListRow{"link", {"lrwxrwxrwx 1 ftp ftp 4 Jan 01 12:00 a -> b"}, {}, 1},
        ListRow{"total", {"total 4", Index}, {}, 1},
        ListRow{"hostile",
                {"-rw ../../etc/passwd", "-rw /abs", Control, "-rw " + std::string(10'000, 'n')},
                {},
                1},
        ListRow{"endless-line", {std::string(std::size_t{64} * 1024, 'x')}, {}, 1},
        ListRow{"no-files", {}, {}, 1}, ListRow{"refused", {}, {"Host: 550 no such directory"}, 1},
        ListRow{"reset-once", {Index}, {}, 2},
        ListRow{"cut-listing", {Index, Index, Index, Index, Index}, {}, 2},
        ListRow{"closed-port", {Index}, {}, 1},
        ListRow{"stalled-listing", {Index}, {"Host: Timeout was reached"}, 2}),
    rowName<ListRow>);

struct PageRow {
    std::string scenario;
    std::string page;
    Texts messages;
    int connections;
};

class Pages : public testing::TestWithParam<PageRow> {};

TEST_P(Pages, ArriveAsAWholeOrNotAtAll) {
    const FaultServer server(GetParam().scenario);
    Client client(Short);
    client.ftp.connect(server.login());
    bool retrieved = false;
    try {
        retrieved = client.retrieve("/www/index.html");
    } catch (const Failure& failure) {
        EXPECT_EQ("Host: " + failure.description(),
                  "Host: Connection to the host lost: " + client.messages.texts[0].substr(6));
    }
    EXPECT_EQ(retrieved, !GetParam().page.empty());
    EXPECT_EQ(client.page(), GetParam().page);
    EXPECT_EQ(client.folderIsEmpty(), !retrieved);
    EXPECT_EQ(client.messages.texts, GetParam().messages);
    EXPECT_EQ(server.connections(), GetParam().connections);
}

INSTANTIATE_TEST_SUITE_P(
    Ftp, Pages,
    testing::Values(PageRow{"healthy", Page, {}, 1}, PageRow{"both-replies", Page, {}, 1},
                    PageRow{"refused", "", {}, 1}, PageRow{"goodbye-once", Page, {}, 2},
                    PageRow{"goodbye-always", "", {"Host: 421 idle for too long"}, 2},
                    PageRow{"cut-page", Page, {}, 1}, PageRow{"reset-page", Page, {}, 1},
                    PageRow{"stalled-reply", "", {"Host: Timeout was reached"}, 2},
                    PageRow{"no-last-reply", "", {"Host: Timeout was reached"}, 2},
                    PageRow{"huge-page", "", {"Host: /www/index.html is larger than 64 MB"}, 1}),
    rowName<PageRow>);

struct StopRow {
    std::string scenario;
};

class Stops : public testing::TestWithParam<StopRow> {};

TEST_P(Stops, EndAWaitingOperationAtOnce) {
    const FaultServer server(GetParam().scenario);
    Client client;
    auto last = Clock::now();
    auto longestGap = Clock::duration::zero();
    const auto begin = last;
    client.events.event = [&] {
        const auto now = Clock::now();
        longestGap = std::max(longestGap, now - last);
        last = now;
        client.state.abort = now - begin > 300ms;
    };
    client.ftp.connect(server.login());
    Texts lines;
    if (client.ftp.connected()) {
        client.ftp.list("/", [&](std::string_view line) { lines.emplace_back(line); });
        EXPECT_FALSE(client.retrieve("/page"));
    }
    client.ftp.disconnect();
    EXPECT_LT(Clock::now() - last, 200ms);
    EXPECT_LT(longestGap, 150ms);
    EXPECT_EQ(client.messages.texts, Texts());
    EXPECT_TRUE(client.folderIsEmpty());
    EXPECT_EQ(lines, GetParam().scenario == "silent" ? Texts() : Texts{Index});
}

INSTANTIATE_TEST_SUITE_P(Ftp, Stops,
                         testing::Values(StopRow{"silent"}, StopRow{"stalled-listing"},
                                         StopRow{"stalled-reply"}, StopRow{"no-last-reply"}),
                         rowName<StopRow>);

TEST(FtpFaults, ManyLinesStreamInAndNothingIsKept) {
    const FaultServer server("many");
    Client client;
    client.ftp.connect(server.login());
    std::size_t count = 0;
    bool whileItRuns = false;
    client.events.event = [&] { whileItRuns = whileItRuns || (count > 0 && count < 100'000); };
    client.ftp.list("/", [&](std::string_view /*line*/) { ++count; });
    EXPECT_EQ(count, 100'000U);
    EXPECT_TRUE(whileItRuns);
}

TEST(FtpFaults, AFailureOfTheTakerPassesThroughAndTheNextListingWorks) {
    const FaultServer server("healthy");
    Client client;
    client.ftp.connect(server.login());
    const auto fail = [](std::string_view /*line*/) { throw overflow(); };
    EXPECT_THROW(client.ftp.list("/", fail), Failure);
    EXPECT_EQ(client.list("/"), Texts{Index});
}

TEST(FtpFaults, AHostThatGrewTiredOfWaitingIsLoggedInAtAgain) {
    const FaultServer server("idle");
    Client client;
    client.ftp.connect(server.login());
    EXPECT_TRUE(client.retrieve("/page"));
    EXPECT_EQ(client.list("/"), Texts{Index});
    EXPECT_EQ(server.connections(), 2);
    EXPECT_EQ(client.messages.texts, Texts());
}

TEST(FtpFaults, ALostHostIsNotWaitedForTwice) {
    const FtpTimeouts slow{5s, 5s, 5s};
    Client client(slow);
    {
        const FaultServer server("healthy");
        client.ftp.connect(server.login());
    }
    EXPECT_THROW(client.list("/"), Failure);
    EXPECT_FALSE(client.ftp.connected());
    EXPECT_THROW(client.retrieve("/page"), Failure);
    EXPECT_EQ(client.messages.texts, Texts{"Host: Couldn't connect to server"});
}

TEST(FtpFaults, ActiveModeDoesWithoutTheExtendedCommand) {
    const FaultServer server("no-eprt");
    FtpLogin login = server.login();
    login.passiveDisabled = true;
    Client client;
    client.ftp.connect(login);
    EXPECT_EQ(client.list("/"), Texts{Index});
    EXPECT_TRUE(client.retrieve("/page"));
    EXPECT_EQ(client.page(), Page);
}

TEST(FtpFaults, UnsendablePathsSendNothing) {
    const FaultServer server("healthy");
    Client client;
    client.ftp.connect(server.login());
    const std::string before = server.log();
    for (const std::string& path : {std::string("/a\r\nDELE /b"), std::string("/\n"), WithZero}) {
        EXPECT_FALSE(client.retrieve(path));
        EXPECT_THROW(client.list(path), Failure);
        EXPECT_THROW(client.ftp.deleteFile(path), Failure);
        EXPECT_THROW(client.ftp.removeDirectory(path), Failure);
    }
    EXPECT_EQ(server.log(), before);
    EXPECT_EQ(client.messages.texts, Texts(3, Unsendable));
}

TEST(FtpFaults, AHostThatSaysNoGoodbyeIsLeft) {
    const FaultServer server("no-goodbye");
    Client client(Short);
    client.ftp.connect(server.login());
    const auto begin = Clock::now();
    client.ftp.disconnect();
    EXPECT_LT(Clock::now() - begin, 1s);
    EXPECT_FALSE(client.ftp.connected());
    EXPECT_EQ(client.messages.texts, Texts());
}

} // namespace

} // namespace quillmark::test

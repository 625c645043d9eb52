#include "integration/ftp/Client.h"
#include "integration/ftp/Servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include <sys/stat.h>

namespace quillmark::test {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::HasSubstr;
using testing::Not;

/// For a host that falls silent: long enough for all that it says before on a busy machine.
const FtpTimeouts Short{4s, 4s, 4s};
const std::string Line = "-rw-r--r--   1 ftp      ftp            14 Jan 01 12:00 ";
const std::string Index = Line + "index.html";
const std::string Page = "<a href=\"x\">\r\n\r\n";
const std::string Unsendable =
    "Host: A text with a line break or a zero byte cannot be sent to the host";
const std::string TimedOut = "Host: Timeout was reached";
const std::string WithZero("a\0b", 3);

/// A client that is logged in at a server with a fault.
struct Visit : FaultServer, Client {
    explicit Visit(const std::string& scenario, const FtpTimeouts& timeouts = {},
                   const std::string& account = "")
        : FaultServer(scenario), Client(timeouts) {
        login_.account = account;
        login_.passiveDisabled = scenario == "no-eprt" || scenario == "overtaken";
        ftp.connect(login_);
    }
};

struct LoginRow {
    std::string scenario, account;
    Lines messages;
};

TEST(FtpFaults, ALoginTellsWhyThereIsNone) {
    const std::vector<LoginRow> rows = {
        {"healthy", "", {}},
        {"long-welcome", "", {}},
        {"login-refused", "", {"Host: 530 Login incorrect."}},
        {"echoing", "", {"Host: 530 no: ***"}},
        {"account-needed", "billing", {}},
        {"account-missing", "", {"Host: 332 account please"}},
        {"account-refused", "billing", {"Host: 530 Account unknown."}},
        {"too-many", "", {"Host: 421 Too many users."}},
        {"silent", "", {TimedOut}},
    };
    for (const LoginRow& row : rows) {
        SCOPED_TRACE(row.scenario);
        const bool silent = row.messages == Lines{TimedOut};
        const Visit visit(row.scenario, silent ? Short : FtpTimeouts(), row.account);
        EXPECT_EQ(visit.ftp.connected(), row.messages.empty());
        EXPECT_EQ(visit.messages.normals, row.messages);
        EXPECT_THAT(visit.trace.texts, testing::Each(Not(HasSubstr(visit.login().password))));
    }
}

TEST(FtpFaults, LoginTextsThatCannotBeUsedSendNothing) {
    const FaultServer server("healthy");
    const std::string local = server.login().host;
    const std::int16_t port = server.login().port;
    const std::string badPort = "Port number was not a decimal number between 0 and 65535";
    const std::vector<std::pair<FtpLogin, std::string>> rows = {
        {{false, local, port, "a\rb", "p", ""}, Unsendable},
        {{false, local, port, "u", "p\nDELE x", ""}, Unsendable},
        {{false, local, port, "u", "p", WithZero}, Unsendable},
        {{false, local + "\n", port, "u", "p", ""}, Unsendable},
        {{false, local + "/x", port, "u", "p", ""}, "Host: Not a host: Bad hostname"},
        {{false, local, 0, "u", "p", ""}, "Host: Not a host: " + badPort},
        {{false, local, 1, "u", "p", ""}, "Host: Couldn't connect to server"},
        {{false, "no.invalid", 21, "u", "p", ""}, "Host: Couldn't resolve host name"},
    };
    for (const auto& [login, message] : rows) {
        Client client(Short);
        client.ftp.connect(login);
        EXPECT_FALSE(client.ftp.connected()) << message;
        EXPECT_EQ(client.messages.normals, Lines{message});
        EXPECT_EQ(server.connections(), 0U) << message;
    }
}

/// What arrives of a listing or a page, over how many connections, and what is told.
struct TransferRow {
    std::string scenario;
    Lines arrives;
    std::size_t connections = 1;
    Lines messages = {};
    int times = 1; ///< How often a page is retrieved.
};

TEST(FtpFaults, ListingsComeAsTheHostSentThem) {
    const std::string control("-rw \x01\x1b[2J\0x", 11);
    const std::string longName = "-rw " + std::string(10'000, 'n');
    const std::vector<TransferRow> rows = {
        {"healthy", {Index}},
        {"no-epsv", {Index}},
        {"no-eprt", {Index}},
        {"closed-port", {Index}},
        {"bare-lf", {Index}},
        {"no-last-lf", {Index, Index}},
        {"cr-inside", {"-rw a\rb\r"}},
        {"blank-names", {Line + "my page.html"}},
        {"latin-1", {Line + "\374ber.html"}},
        {"link", {"lrwxrwxrwx 1 ftp ftp 4 Jan 01 12:00 a -> b"}},
        {"total", {"total 4", Index}},
        {"hostile", {"-rw ../../etc/passwd", "-rw /abs", control, longName}},
        {"endless-line", {}, 1, {"Host: The listing of /www/ is larger than 64 MB"}},
        {"long-line", {std::string(std::size_t{64} * 1024, 'x')}},
        {"no-files", {}},
        {"refused", {}, 1, {"Host: 550 no such directory"}},
        {"failed-late", {Index}, 1, {"Host: 451 local error"}},
        {"reset-once", {Index}, 2},
        {"cut-listing", Lines(5, Index), 2},
        {"stalled-listing", {Index}, 2, {TimedOut}},
    };
    for (const TransferRow& row : rows) {
        SCOPED_TRACE(row.scenario);
        Visit visit(row.scenario, Short); // Some of these hosts fall silent once, too.
        bool failed = false;
        try {
            visit.list("/www/");
        } catch (const Failure&) {
            failed = true;
        }
        EXPECT_EQ(visit.lines, row.arrives);
        EXPECT_EQ(failed, !row.messages.empty());
        EXPECT_EQ(visit.messages.normals, row.messages);
        EXPECT_EQ(visit.connections(), row.connections);
    }
}

TEST(FtpFaults, PagesArriveAsAWholeOrNotAtAll) {
    const std::vector<TransferRow> rows = {
        {"healthy", {Page}},
        {"no-eprt", {Page}},
        {"both-replies", {Page}},
        {"refused", {}},
        {"failed-late", {}},
        {"endless-reply", {}, 2, {"Host: Weird server reply"}},
        {"idle", {Page}, 2, {}, 2},
        {"goodbye-once", {Page}, 2},
        {"goodbye-always", {}, 2, {"Host: 421 idle for too long"}},
        {"cut-page", {Page}},
        {"stalled-reply", {}, 2, {TimedOut}},
        {"no-last-reply", {}, 2, {TimedOut}},
        {"huge-page", {}, 1, {"Host: /www/index.html is larger than 64 MB"}},
    };
    for (const TransferRow& row : rows) {
        SCOPED_TRACE(row.scenario);
        Visit visit(row.scenario, row.messages == Lines{TimedOut} ? Short : FtpTimeouts());
        bool retrieved = false;
        try {
            for (int i = 0; i < row.times; ++i) {
                retrieved = visit.retrieve("/www/index.html");
            }
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.description(),
                      "Connection to the host lost: " + visit.messages.normals.at(0).substr(6));
        }
        EXPECT_EQ(retrieved, !row.arrives.empty());
        EXPECT_EQ(visit.page(), retrieved ? Page : "");
        EXPECT_EQ(visit.folderIsEmpty(), !retrieved);
        EXPECT_EQ(visit.messages.normals, row.messages);
        EXPECT_EQ(visit.connections(), row.connections);
    }
}

TEST(FtpFaults, StopEndsAWaitingOperationAtOnce) {
    const std::vector<std::pair<std::string, std::string>> lastCommands = {
        {"silent", "USER webmaster\r\n"},
        {"stalled-listing", "LIST /\r\n"},
        {"stalled-reply", "RETR /page\r\n"},
        {"no-last-reply", "RETR /page\r\n"}};
    for (const auto& [scenario, lastCommand] : lastCommands) {
        SCOPED_TRACE(scenario);
        const FaultServer server(scenario);
        Client client;
        int waits = 0; // Since the host fell silent.
        client.events.hook = [&, last = lastCommand] {
            waits += waits > 0 || server.log().ends_with(last) ? 1 : 0;
            client.state.stopped = waits >= 5;
        };
        client.ftp.connect(server.login());
        if (client.ftp.connected()) {
            EXPECT_EQ(client.list("/"), Lines{Index});
            EXPECT_FALSE(client.retrieve("/page"));
        }
        client.ftp.disconnect();
        EXPECT_GE(waits, 5) << "events run while the host is waited for";
        EXPECT_LE(waits, 8) << "one look for each operation that is still to end";
        EXPECT_EQ(client.messages.normals, Lines());
        EXPECT_TRUE(client.folderIsEmpty());
    }
}

TEST(FtpFaults, APipeInPlaceOfThePageIsNotWrittenTo) {
    Visit visit("healthy");
    for (const char* name : {"page", "page.part"}) {
        ASSERT_EQ(mkfifo((visit.folder.path() / name).c_str(), 0600), 0);
    }
    EXPECT_TRUE(visit.retrieve("/page"));
    EXPECT_EQ(visit.page(), Page);
}

TEST(FtpFaults, AStoppedDeletionDoesNotPassForDone) {
    Visit visit("stalled-reply");
    visit.events.hook = [&visit] { visit.state.stopped = visit.log().ends_with("DELE /page\r\n"); };
    EXPECT_THROW(visit.ftp.deleteFile("/page"), Failure);
}

TEST(FtpFaults, ManyLinesStreamInAndNothingIsKept) {
    Visit visit("many");
    std::size_t count = 0;
    bool whileItRuns = false;
    visit.events.hook = [&] { whileItRuns = whileItRuns || (count > 0 && count < 100'000); };
    visit.ftp.list("/", [&](std::string_view /*line*/) { ++count; });
    EXPECT_EQ(count, 100'000U);
    EXPECT_TRUE(whileItRuns);
}

TEST(FtpFaults, AFailureOfTheTakerPassesThroughAndTheNextListingWorks) {
    Visit visit("healthy");
    const auto fail = [](std::string_view /*line*/) { throw overflow(); };
    EXPECT_THROW(visit.ftp.list("/", fail), Failure);
    EXPECT_EQ(visit.list("/"), Lines{Index});
}

TEST(FtpFaults, ALostHostIsNotWaitedForTwice) {
    Client client;
    client.ftp.connect(FaultServer("healthy").login());
    EXPECT_THROW(client.list("/"), Failure);
    EXPECT_FALSE(client.ftp.connected());
    EXPECT_THROW(client.retrieve("/page"), Failure);
    EXPECT_EQ(client.messages.normals, Lines{"Host: Couldn't connect to server"});
}

TEST(FtpFaults, AnOperationHasAClockOfItsOwn) {
    const FtpTimeouts whole{60s, 60s, 60s, 1s};
    for (const char* scenario : {"dripping", "announcing"}) {
        Visit visit(scenario, whole);
        EXPECT_THROW(visit.retrieve("/page"), Failure) << scenario;
        EXPECT_EQ(visit.messages.normals, Lines{TimedOut});
    }
}

TEST(FtpFaults, WhoeverIsFirstAtAnActivePortIsRefusedUnlessItIsTheHost) {
    Visit visit("overtaken");
    EXPECT_EQ(visit.list("/"), Lines{Index});
    EXPECT_EQ(visit.messages.normals,
              Lines{"Host: Refused a connection from 127.0.0.2, which is not the host"});
}

TEST(FtpFaults, UnsendablePathsSendNothing) {
    Visit visit("healthy");
    const std::string before = visit.log();
    for (const std::string& path : {std::string("/a\r\nDELE /b"), std::string("/\n"), WithZero}) {
        EXPECT_FALSE(visit.retrieve(path));
        EXPECT_THROW(visit.list(path), Failure);
        EXPECT_THROW(visit.ftp.deleteFile(path), Failure);
        EXPECT_THROW(visit.ftp.removeDirectory(path), Failure);
    }
    EXPECT_EQ(visit.log(), before);
    EXPECT_EQ(visit.messages.normals, Lines(3, Unsendable));
}

TEST(FtpFaults, AHostThatSaysNoGoodbyeIsLeft) {
    Visit visit("no-goodbye");
    const auto begin = Clock::now();
    visit.ftp.disconnect();
    EXPECT_LT(Clock::now() - begin, FtpTimeouts().reply / 2) << "no reply is waited for";
    EXPECT_FALSE(visit.ftp.connected());
    EXPECT_EQ(visit.messages.normals, Lines());
}

TEST(FtpFaults, AGoodbyeNeverFails) {
    Visit visit("healthy");
    visit.trace.diskIsFull = true;
    EXPECT_NO_THROW(visit.ftp.disconnect());
    EXPECT_FALSE(visit.ftp.connected());
}

} // namespace

} // namespace quillmark::test

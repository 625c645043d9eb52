// Several connections find what one finds.

#include "integration/ftp/Client.h"
#include "integration/ftp/Servers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using testing::StartsWith;
using namespace std::chrono_literals;

const std::string SmallPage = "<a href=\"x\">\r\n\r\n";

/// A run over a real host.
struct HostBench : RunBench {
    HostBench(const FtpLogin& login, int connections) {
        Profile& profile = settings.profile;
        setLogin(profile, login);
        profile.CONNECTIONS = static_cast<std::int16_t>(connections);
        settings.configuration.IGNORECASE = 0;
    }
    /// Everything that the run tells and finds, in order, with the transfers of the trace.
    Lines everything(const std::string& start) {
        settings.profile.START_PATH = start;
        check.start();
        Lines lines = messages.normals;
        for (const std::string& text : trace.texts) {
            if (text.starts_with("LIST") || text.starts_with("RETR")) {
                lines.push_back(text);
            }
        }
        for (const ResultList* list :
             {&lists.DirectoryList, &lists.FileSizes, &lists.GetFileList, &lists.ReferenceList,
              &lists.ReferenceListFrom, &lists.InvalidReferences, &lists.InvalidReferencesFrom,
              &lists.IgnoredReferences, &lists.UnusedList, &lists.DuplicateList}) {
            const Lines more = linesOf(*list);
            lines.emplace_back("--");
            lines.insert(lines.end(), more.begin(), more.end());
        }
        return lines;
    }

    RecordedTrace trace;
    ScriptedTrust trust;
    FtpXCtl ftp{messages, events, state, trace, trust, {}};
    Outside realHost{messages, disk, ftp, web, window, events, siteDisk};
    CheckRun check{lists,    siteResults, state,
                   settings, realHost,    ToBackSlashes(program.path().string())};
};

/// A hundred pages in a tree of folders, each with references to others, to itself and to none.
void writeTree(const TempFolder& folder) {
    folder.write("index.html", "<a href=\"d0/p0.html\">\r\n<a href=\"gone.html\">\r\n\r\n");
    for (int i = 0; i < 100; ++i) {
        const std::string next = std::to_string((i + 1) % 10);
        const std::string other = std::to_string(i % 7);
        const std::string here = "d" + std::to_string(i / 10);
        std::string page = "<a href=\"p" + next + ".html\">\r\n";
        page.append("<a href=\"../../d").append(other).append("/sub/p").append(next);
        page.append(".html\">\r\n<img src=\"none").append(other).append(".gif\">\r\n\r\n");
        folder.write(here + "/sub/p" + std::to_string(i % 10) + ".html", page);
        folder.write(here + "/p0.html", "<a href=\"sub/p3.html\">\r\n\r\n");
    }
}

TEST(Ahead, EightConnectionsFindWhatOneFinds) {
    const TempFolder tree;
    writeTree(tree);
    const std::string start = (tree.path() / "index.html").string();
    for (const char* name : {"ProFTPD", "vsftpd"}) {
        const RealServer server(name);
        HostBench one(server.login(), 1);
        HostBench eight(server.login(), 8);
        const Lines expected = one.everything(start);
        EXPECT_GT(one.lists.GetFileList.Count(), 50);
        EXPECT_EQ(eight.everything(start), expected) << name;
        EXPECT_EQ(one.trace.count("PASS"), 1) << testing::PrintToString(one.trace.texts);
        EXPECT_GT(eight.trace.count("PASS"), 1);
    }
}

TEST(Ahead, StopAtAnyMessageLeavesTheSame) {
    const TempFolder tree;
    writeTree(tree);
    const RealServer server("ProFTPD");
    for (const int last : {1, 4, 5, 9, 20, 24, 27, 31, 60, 100}) {
        std::vector<Lines> found;
        for (const int connections : {1, 8}) {
            HostBench bench(server.login(), connections);
            int count = 0;
            bench.messages.onPost = [&](std::string_view /*text*/) {
                if (++count == last) {
                    bench.check.stop();
                }
            };
            found.push_back(bench.everything((tree.path() / "index.html").string()));
        }
        EXPECT_EQ(found[1], found[0]) << last;
    }
}

TEST(Ahead, AFullListEndsTheRunAtTheSameLine) {
    std::vector<Lines> found;
    for (const int connections : {1, 8}) {
        const FaultServer server("many");
        HostBench bench(server.login(), connections);
        found.push_back(bench.everything("/index.html"));
        EXPECT_EQ(bench.lists.FileList.Count(), 100'000) << "the listing comes to its end";
    }
    EXPECT_EQ(found[1], found[0]);
}

TEST(Ahead, AHostThatAllowsTwoIsToldOfOnce) {
    const TempFolder tree;
    writeTree(tree);
    const std::string start = (tree.path() / "index.html").string();
    const LimitedServer server(2);
    HostBench one(server.login(), 1);
    HostBench eight(server.login(), 8);
    const Lines expected = one.everything(start);
    Lines lines = eight.everything(start);
    const auto told = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with("Host: A further connection failed (421 ");
    });
    ASSERT_NE(told, lines.end());
    lines.erase(told);
    EXPECT_EQ(lines, expected);
}

/// Pages that are retrieved one after the other, after all of them were expected.
struct Reader : FaultServer, Client {
    Reader(const std::string& scenario, int pages, const FtpTimeouts& timeouts = {})
        : FaultServer(scenario), Client(timeouts) {
        login_.connections = 4;
        ftp.connect(login_);
        for (int i = 0; i < pages; ++i) {
            names.push_back("/page" + std::to_string(i));
            ftp.expectFile(names.back());
        }
    }
    Lines names;
};

TEST(Ahead, OneConnectionWorksWhileTheHostStallsTheOthers) {
    Reader reader("one-connection", 8, {4s, 4s, 4s});
    while (reader.messages.normals.empty()) {
        ASSERT_TRUE(reader.retrieve("/page"));
    }
    EXPECT_EQ(
        reader.messages.normals,
        Lines{"Host: A further connection failed (Timeout was reached); going on with fewer"});
}

TEST(Ahead, AConnectionLostInMidPageIsMadeAnewInSilence) {
    Reader reader("cut-on-second", 20);
    for (const std::string& name : reader.names) {
        EXPECT_TRUE(reader.retrieve(name)) << name;
        EXPECT_EQ(reader.page(), SmallPage);
    }
    EXPECT_EQ(reader.messages.normals, Lines());
}

TEST(Ahead, WhatIsAskedForGoesBeforeWhatFillsTheMemory) {
    constexpr std::size_t PageSize = std::size_t{1} << 20;
    Reader reader("big-pages", 40);
    const auto isRead = [&reader](const std::string& name) {
        const bool retrieved = reader.retrieve(name);
        const std::string page = reader.page();
        return retrieved && page.size() == PageSize && page.starts_with(name + "x");
    };
    EXPECT_TRUE(isRead("/unexpected"));
    for (const std::string& name : reader.names) {
        EXPECT_TRUE(isRead(name)) << name;
    }
    EXPECT_EQ(reader.messages.normals, Lines());
}

TEST(Ahead, WhatTheRunPassesOverIsDropped) {
    Reader reader("big-pages", 40);
    EXPECT_TRUE(reader.retrieve(reader.names[30]));
    EXPECT_THAT(reader.page(), StartsWith(reader.names[30] + "x"));
    EXPECT_TRUE(reader.retrieve(reader.names[3]));
    EXPECT_THAT(reader.page(), StartsWith(reader.names[3] + "x"));
}

} // namespace
} // namespace quillmark::test

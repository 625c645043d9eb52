#include "classic/verify/ReferencePasses.h"
#include "integration/http/WebServer.h"

#include <algorithm>
#include <chrono>
#include <string>

#include <malloc.h>
#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // No header of g++ has it.
#endif

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillmark::test {
namespace {

using namespace std::chrono_literals;

/// One URL pass over ignored references.
struct UrlPass : HttpBench {
    explicit UrlPass(const FetchLimits& limits = {}) : HttpBench(limits) {}

    void ignore(const Lines& urls) {
        for (const std::string& url : urls) {
            lists.IgnoredReferences.Append(url);
            lists.IgnoredReferencesFrom.Append("from " + url);
        }
    }
    void check() {
        RunContext reaching{lists, state, settings, online, ""};
        FiledReferences references(lists);
        LineIndex files(lists.FileList, NameComparison::Exact);
        ReferencePasses(reaching, limit, references, files).checkURLs();
    }
    int passed() const { return lists.ReferenceList.Count(); }
};

Lines fromLines(Lines lines) {
    for (std::string& line : lines) {
        line.insert(0, "from ");
    }
    return lines;
}

enum class Answer { Passes, Fails, None };

struct UrlRow {
    const char* name;
    std::string url;
    Answer answer;
};

TEST(UrlPass, GivesEachAnswerItsResultAndMessageInOrder) {
    UrlPass pass({.wholeFetch = 10s});
    const WebServer& server = pass.server;
    const std::vector<UrlRow> rows = {
        {"a page", server.url("/page/1"), Answer::Passes},
        {"scheme in capitals", "HTTP" + server.url("/page/2").substr(4), Answer::Passes},
        {"blank and bytes beyond ASCII", server.url("/page/a b\xe9"), Answer::Passes},
        {"fragment", server.url("/page/3#part"), Answer::Passes},
        {"404 by status alone", server.url("/status/404"), Answer::Passes},
        {"404 with the text", server.url("/missing"), Answer::Fails},
        {"200 with the text", server.url("/lie"), Answer::Fails},
        {"text within a gzip stream", server.url("/zipped"), Answer::Fails},
        {"text in two pieces", server.url("/split"), Answer::Fails},
        {"shorter than its server said", server.url("/short"), Answer::None},
        {"damaged gzip stream", server.url("/damaged"), Answer::None},
        {"gzip stream of 200 MiB", server.url("/bomb"), Answer::Passes},
        {"ten redirections", server.url("/hop/10"), Answer::Passes},
        {"eleven redirections", server.url("/hop/11"), Answer::None},
        {"redirection loop", server.url("/loop"), Answer::None},
        {"redirected to a local file", server.url("/to?file:///etc/passwd"), Answer::None},
        {"redirected to FTP", server.url("/to?ftp://127.0.0.1/"), Answer::None},
        {"no reply", server.url("/never"), Answer::None},
        {"connection closed", server.url("/unknown"), Answer::None},
        {"body without end", server.url("/endless"), Answer::Passes},
        {"header without end", server.url("/header"), Answer::None},
        {"certificate that nobody signed", server.tlsUrl() + "?http:", Answer::None},
        {"nobody listens", "http://127.0.0.1:1/", Answer::None},
        {"local file", "file:///etc/passwd?http:", Answer::None},
        {"unknown scheme", "x" + server.url("/page/4"), Answer::None},
        {"no absolute address", "go.cgi?u=" + server.url("/page/5"), Answer::None},
        {"no web reference", "mailto:me", Answer::None},
    };
    Lines messages;
    Lines references;
    Lines ignored;
    for (const UrlRow& row : rows) {
        pass.ignore({row.url});
        (row.answer == Answer::Passes ? references : ignored).push_back(row.url);
        if (row.answer != Answer::None) {
            messages.push_back("Check For " + row.url +
                               (row.answer == Answer::Passes ? " Passed" : " Failed"));
        }
    }
    pass.check();
    EXPECT_EQ(pass.messages.normals, messages);
    EXPECT_EQ(linesOf(pass.lists.ReferenceList), references);
    EXPECT_EQ(linesOf(pass.lists.ReferenceListFrom), fromLines(references));
    EXPECT_EQ(linesOf(pass.lists.IgnoredReferences), ignored);
    EXPECT_EQ(linesOf(pass.lists.IgnoredReferencesFrom), fromLines(ignored));
    EXPECT_EQ(pass.reported("/page/a%20b%e9"), 1);
    EXPECT_EQ(pass.reported("/never"), 1);
}

struct LimitRow {
    const char* name;
    int hosts;
    std::optional<std::size_t> toOneHost; ///< Instead of what is usual.
    int mostToOneHost, mostInAll;
};

TEST(UrlPass, ReachesItsLimitsAndNeverExceedsThem) {
    const std::vector<LimitRow> rows = {
        {"one host", 1, {}, 8, 8},
        {"many hosts", 8, {}, 8, 32},
        {"one host for all", 1, 50, 32, 32},
    };
    for (const LimitRow& row : rows) {
        SCOPED_TRACE(row.name);
        UrlPass pass({.toOneHost = row.toOneHost});
        constexpr int Urls = 240;
        for (int i = 0; i < Urls; ++i) {
            const std::string host = "127.0.0." + std::to_string(1 + i % row.hosts);
            // Every third is sent on to the first host, which must not get more than its share.
            const std::string path = "/slow/" + std::to_string(row.mostInAll) + "/" +
                                     std::to_string(row.mostToOneHost) + "/" +
                                     std::to_string(i / 2);
            pass.ignore(
                {pass.server.url(i % 3 == 0 ? "/to?" + pass.server.url(path) : path, host)});
        }
        pass.check();
        EXPECT_EQ(pass.passed(), Urls);
        EXPECT_EQ(pass.reported("to one host"), row.mostToOneHost);
        EXPECT_EQ(pass.reported("in all"), row.mostInAll);
    }
}

TEST(UrlPass, FetchesWhatIsListedTwiceOnce) {
    UrlPass pass;
    for (const char* path : {"/page", "/slow/1/1", "/page", "/damaged", "/damaged", "/page"}) {
        pass.ignore({pass.server.url(path)});
    }
    pass.check();
    EXPECT_EQ(pass.passed(), 4);
    EXPECT_EQ(pass.reported("/page"), 1);
    EXPECT_EQ(pass.reported("/damaged"), 1);
}

TEST(UrlPass, StopEndsItAtOnce) {
    UrlPass pass;
    const std::string page = pass.server.url("/page");
    pass.ignore({page, pass.server.url("/never"), pass.server.url("/page/2")});
    int waits = 0; // For the host that never answers.
    pass.events.hook = [&] {
        waits += pass.passed() == 1 ? 1 : 0;
        pass.state.abort = waits >= 5;
    };
    pass.check();
    EXPECT_EQ(waits, 5);
    EXPECT_THAT(pass.messages.normals, ::testing::ElementsAre("Check For " + page + " Passed"));
}

/// What the program has allocated and not freed.
std::size_t allocated() {
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
#endif
}

TEST(UrlPass, KeepsItsMemoryWhateverArrivesAhead) {
    UrlPass pass({.wholeFetch = 20s});
    const WebServer& server = pass.server;
    // While the first two keep the pass waiting, all others arrive.
    pass.ignore({server.url("/never", "127.0.0.9"), server.url("/bomb", "127.0.0.9")});
    for (int i = 0; i < 12; ++i) {
        const std::string host = "127.0.0." + std::to_string(1 + i % 5);
        for (const char* habit : {"/big/", "/bomb/", "/header/"}) {
            pass.ignore({server.url(habit + std::to_string(i), host)});
        }
    }
    const std::size_t before = allocated();
    std::size_t most = before;
    pass.events.hook = [&most] { most = std::max(most, allocated()); };
    pass.check();
    EXPECT_LT(most - before, std::size_t{32} * 1024 * 1024);
    EXPECT_EQ(pass.passed(), 25);
    EXPECT_EQ(pass.reported("/big/0"), 1);
    EXPECT_EQ(pass.reported("/big/11"), 1);
}

} // namespace
} // namespace quillmark::test

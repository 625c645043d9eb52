#include "integration/http/WebServer.h"
#include "platform/http/PrivateNetwork.h"
#include "web/check/WebCheck.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>

namespace quillmark::test {
namespace {

using namespace std::chrono_literals;

/// A check of one page, whose links lead to the server.
struct LinkBench : HttpBench {
    explicit LinkBench(FetchLimits limits = {}) : HttpBench(quick(limits)) {
        settings.profile.RULES = Rules::Web;
        settings.profile.CHECK_URL = 1;
        state.localMode = true;
    }
    static FetchLimits quick(FetchLimits limits) {
        limits.pause = 10ms;
        return limits;
    }
    /// Each link stands on a line of its own.
    void check(const std::vector<std::string>& links) {
        std::string page;
        for (const std::string& link : links) {
            page += link.starts_with('<') ? link : "<a href='" + link + "'>";
            page += "\n";
        }
        settings.profile.START_PATH = ToBackSlashes(site.write("index.html", page).string());
        siteResults = {};
        web::WebCheck(siteResults, state, settings, options, online, "").perform();
    }
    /// "error moved 301 -> http://..." for what was found on a line; several follow each other.
    std::string foundOn(std::size_t line) const {
        std::string text;
        for (const Finding& finding : siteResults.findings) {
            if (finding.at.line == line) {
                text +=
                    std::string(nameOf(finding.level)) + " " + std::string(nameOf(finding.kind));
                text += finding.status == 0 ? "" : " " + std::to_string(finding.status);
                text += finding.suggestion.empty() ? "" : " -> " + std::string(finding.suggestion);
            }
        }
        return text;
    }

    web::WebOptions options;
};

struct LinkRow {
    std::string link;
    std::string found; ///< As LinkBench says it.
};

void expectRows(LinkBench& bench, const std::vector<LinkRow>& rows) {
    std::vector<std::string> links;
    std::transform(rows.begin(), rows.end(), std::back_inserter(links),
                   std::mem_fn(&LinkRow::link));
    bench.check(links);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(bench.foundOn(i + 1), rows[i].found) << rows[i].link;
    }
}

TEST(LinkCheck, JudgesEachAnswer) {
    LinkBench bench;
    const auto url = [&bench](const std::string& path) { return bench.server.url(path); };
    const std::string page = url("/page");
    // A body after a HEAD spoils what shares its connection: such servers have a host of their own.
    expectRows(bench, {
                          {page, ""},
                          {url("/page/a b\xC3\xBC#part"), ""},
                          {"HTTP:\\\\127.0.0.1" + url("\\page").substr(16), ""},
                          {url("/status/204"), ""},
                          {url("/status/404"), "error address-missing 404"},
                          {url("/status/410"), "error address-missing 410"},
                          {url("/status/400"), "error address-refused 400"},
                          {url("/status/451"), "error address-refused 451"},
                          {url("/status/401"), "note undetermined 401"},
                          {url("/status/403"), "note undetermined 403"},
                          {url("/status/407"), "note undetermined 407"},
                          {url("/status/429"), "note undetermined 429"},
                          {url("/status/500"), "note undetermined 500"},
                          {url("/status/999"), "note undetermined 999"},
                          {"<form action=" + url("/status/405") + ">", "note address-refused 405"},
                          {url("/headless/404"), ""},
                          {url("/headless/500"), ""},
                          {url("/busy/503/3"), ""},
                          {url("/to?/page"), ""},
                          {url("/good?/page") + "#part", "note moved 301 -> " + page + "#part"},
                          {url("/better?/page"), "note moved 308 -> " + page},
                          {url("/good?/good?/to?/page"), "note moved 301 -> " + url("/to?/page")},
                          {url("/to?/good?/page"), ""},
                          {url("/good?/status/404"), "error address-missing 404"},
                          {url("/cookie"), ""},
                          {url("/cookie/2"), ""},
                          {url("/hop/10"), ""},
                          {url("/hop/11"), "error redirect-loop"},
                          {url("/loop"), "error redirect-loop"},
                          {url("/to?file:///etc/passwd"), "error redirect-nowhere"},
                          {url("/to?ftp://127.0.0.1/"), "error redirect-nowhere"},
                          {url("/status/302"), "error redirect-nowhere 302"},
                          {url("/unknown"), "note no-answer"},
                          {url("/header"), "note no-answer"},
                          {bench.server.url("/endless", "127.0.0.2"), ""},
                          {url("/bomb"), ""},
                          {url("/damaged"), ""},
                          {bench.server.url("/short", "127.0.0.2"), ""},
                          {bench.server.tlsUrl(), "error insecure"},
                          {"http://127.0.0.1:1/", "error host-refuses"},
                          {"http://nobody.invalid/", "error host-unknown"},
                          {"ftp://127.0.0.1/", ""},
                          {"mailto:me@site.example", ""},
                      });
    EXPECT_EQ(bench.reported("HEAD /page"), 6); // Once for itself, and for five redirects.
    EXPECT_EQ(bench.reported("/page"), 0);
    EXPECT_EQ(bench.siteResults.ignored.size(), 2U);
    EXPECT_EQ(bench.siteResults.addresses.size(), 40U);
}

TEST(LinkCheck, WaitsAsLongAsServersWish) {
    for (const char* path : {"/later/2", "/later/date/3"}) {
        LinkBench bench;
        bench.check({bench.server.url(path)});
        EXPECT_EQ(bench.foundOn(1), "") << path;
        EXPECT_GE(bench.reported("ms of pause"), 1900) << path;
    }
    LinkBench bench;
    expectRows(bench, {{bench.server.url("/later/61"), "note undetermined 429"}});
    EXPECT_EQ(bench.reported("HEAD /later/61"), 1);
    EXPECT_EQ(bench.reported("/later/61"), 0);
}

TEST(LinkCheck, EndsWhatHasNoEnd) {
    LinkBench bench({.wholeFetch = 300ms, .head = 300ms});
    expectRows(bench, {{bench.server.url("/never"), "note timed-out"}});
    EXPECT_EQ(bench.reported("HEAD /never"), 1);
    EXPECT_EQ(bench.reported("/never"), 3);
    LinkBench limited;
    limited.options.links.time = 1s;
    expectRows(limited, {{limited.server.url("/never"), "note not-asked"},
                         {limited.server.url("/mute"), "note not-asked"}});
}

TEST(LinkCheck, AsksAgainWhereHeadIsNotAnswered) {
    LinkBench bench({.head = 2s});
    expectRows(bench, {{bench.server.url("/mute"), ""}});
}

TEST(LinkCheck, SendsHeadersToTheirPrefixOnly) {
    LinkBench bench;
    const auto to = [&bench](const std::string& path, const std::string& host = "127.0.0.1") {
        return bench.server.url(path, host);
    };
    bench.options.links.headers = {to("/wants") + " X-Key: secret", to("/to") + " X-Key: secret",
                                   "http://127.0.0.1:1 X-Other: x", "http://127.0.0.1 X-Third: x"};
    const std::string wants = "/wants/X-Key:secret";
    expectRows(bench, {
                          {to(wants), ""},
                          {to(wants, "127.0.0.2"), "error address-missing 404"},
                          {to("/to?" + to(wants)), ""},
                          {to("/to?" + to(wants, "127.0.0.2")), "error address-missing 404"},
                          {to("/wants/X-Other:x"), "error address-missing 404"},
                          {to("/wants/X-Third:x"), "error address-missing 404"},
                      });
}

TEST(LinkCheck, LooksForFragmentsInPages) {
    LinkBench bench;
    bench.options.links.fragments = true;
    const std::string page = bench.server.url("/ids");
    expectRows(bench, {
                          {page + "#here", ""},
                          {page + "#made", ""},
                          {page + "#h%65re", ""},
                          {page + "#top", ""},
                          {page + "#/route", ""},
                          {page + "#her", "error fragment-missing -> " + page + "#here"},
                          {bench.server.url("/to?/ids") + "#gone", "error fragment-missing"},
                          {bench.server.url("/page") + "#page=2", ""},
                          {bench.server.url("/status/404") + "#gone", "error address-missing 404"},
                      });
    EXPECT_EQ(bench.reported("/ids"), 2);
}

TEST(LinkCheck, AsksEachHostForFourAtOnce) {
    LinkBench bench;
    std::vector<std::string> links;
    for (int i = 0; i < 40; ++i) {
        const std::string host = "127.0.0." + std::to_string(1 + i % 2);
        links.push_back(bench.server.url("/slow/8/4/" + std::to_string(i), host));
    }
    bench.check(links);
    EXPECT_TRUE(bench.siteResults.findings.empty());
    EXPECT_EQ(bench.reported("to one host"), 4);
    EXPECT_EQ(bench.reported("in all"), 8);
}

TEST(LinkCheck, StopKeepsWhatWasJudged) {
    LinkBench bench;
    bench.events.hook = [&bench] { bench.state.abort = !bench.siteResults.addresses.empty(); };
    bench.check({bench.server.url("/status/404"), bench.server.url("/never")});
    EXPECT_EQ(bench.foundOn(1), "error address-missing 404");
    EXPECT_EQ(bench.foundOn(2), "");
    EXPECT_EQ(bench.siteResults.ignored.size(), 1U);
}

TEST(LinkCheck, LooksIntoNoPrivateNetwork) {
    LinkBench bench;
    bench.options.links.excludePrivate = true;
    expectRows(bench, {{bench.server.url("/page"), "note private-address"},
                       {bench.server.url("/page", "localhost"), "note private-address"}});
    EXPECT_EQ(bench.reported("HEAD /page"), 0);
}

bool isPrivateText(const std::string& text) {
    sockaddr_in four{AF_INET, 0, {}, {}};
    sockaddr_in6 six{AF_INET6, 0, 0, {}, 0};
    if (::inet_pton(AF_INET, text.c_str(), &four.sin_addr) == 1) {
        return isPrivate(reinterpret_cast<const sockaddr&>(four));
    }
    EXPECT_EQ(::inet_pton(AF_INET6, text.c_str(), &six.sin6_addr), 1) << text;
    return isPrivate(reinterpret_cast<const sockaddr&>(six));
}

/// Of addresses with blanks between them.
void expectPrivate(bool expected, const std::string& addresses) {
    std::istringstream words(addresses);
    for (std::string address; words >> address;) {
        EXPECT_EQ(isPrivateText(address), expected) << address;
    }
}

TEST(PrivateNetwork, IsToldFromThePublicInternet) {
    // The first and the last address of each network, and those beside them.
    expectPrivate(true, "0.0.0.0 0.255.255.255 10.0.0.0 10.255.255.255 100.64.0.0 100.127.255.255 "
                        "127.0.0.1 127.255.255.255 169.254.0.0 169.254.169.254 172.16.0.0 "
                        "172.31.255.255 192.168.0.0 192.168.255.255 198.18.0.0 224.0.0.1 "
                        "255.255.255.255 :: ::1 ::ffff:127.0.0.1 ::ffff:10.1.2.3 64:ff9b::a00:1 "
                        "64:ff9b:1::8.8.8.8 2002:7f00:1:: fc00::1 fdff::1 fe80::1 febf::1 fec0::1 "
                        "ff02::1");
    expectPrivate(false, "1.0.0.0 9.255.255.255 11.0.0.0 100.63.255.255 100.128.0.0 "
                         "126.255.255.255 128.0.0.0 169.253.255.255 169.255.0.0 172.15.255.255 "
                         "172.32.0.0 192.167.255.255 192.169.0.0 198.17.255.255 198.20.0.0 "
                         "223.255.255.255 ::ffff:8.8.8.8 64:ff9b::808:808 2002:808:808:: "
                         "2001:4860:4860::8888 2a00::1");
}

} // namespace
} // namespace quillmark::test

#include "integration/command/CommandBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillmark::test {
namespace {

struct ExampleSite : testing::Test, CommandBench {};

/// The lines of a list, with the site's folder taken off, in byte order.
Words sorted(const nlohmann::json& list) {
    Words lines = list;
    const std::string root = std::string(QUILLMARK_EXAMPLE) + "/";
    for (std::string& line : lines) {
        if (line.starts_with(root)) {
            line.erase(0, root.size());
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST_F(ExampleSite, HoldsWhatIsPlantedInIt) {
    const auto lists = json({"--set", "IGNORECASE=0", "--set", "CHECK_DUPES=1",
                             std::string(QUILLMARK_EXAMPLE) + "/index.html"})["lists"];
    const std::string outside = std::filesystem::path(QUILLMARK_EXAMPLE).parent_path().string();
    EXPECT_EQ(sorted(lists["InvalidReferences"]),
              (Words{outside + "/pictures/evening-light.jpg", "boats/Masters of Otterbrook",
                     "cgi-bin/board.cgi", "crews/winter.html", "files/", "history.html",
                     "images/Podium.jpg", "images/banner-2003.gif", "images/quad.gif",
                     "regatta/rules.html#lanes", "regatta/rules.html#safety"}));
    EXPECT_EQ(
        sorted(lists["IgnoredReferences"]),
        (Words{"#cake", "#lanes", "#safety", "#top", "./river/river.html", "/cgi-bin/guestbook.cgi",
               "/index.html", "ftp://ftp.riverboard.example/pub/levels.txt",
               "http://www.otterbrook.example/index.html",
               "http://www.rowing-news.example/results.html", "mailto:captain@otterbrook.example",
               "mailto:lock@riverboard.example"}));
    EXPECT_EQ(sorted(lists["UnusedList"]),
              (Words{"archive/poster.gif", "archive/programme-1999.html",
                     "archive/results-1999.html", "boats/eights.html", "boats/sculls.html",
                     "files/minutes-draft.txt", "files/packing-list.txt", "images/cox.jpg",
                     "images/old-crest.gif", "images/podium.jpg", "images/start-small.gif",
                     "images/wave.gif", "regatta/2003.html", "river/slipway.html"}));
    EXPECT_EQ(sorted(lists["DuplicateList"]), Words{"images/logo.gif"});
    EXPECT_EQ(lists["GetFileList"].size(), 12U);
    EXPECT_EQ(lists["ReferenceList"].size(), 146U);
}

TEST_F(ExampleSite, OfTodayShowsWhatTheReadmeTells) {
    const std::filesystem::path example = QUILLMARK_EXAMPLE_TODAY;
    const Words words = {"--rules", "web", "--set", "CHECK_DUPES=1",
                         (example / "index.html").string()};
    const Finished summary = check(words);
    EXPECT_EQ(summary.status, 1);
    std::string shown = summary.out;
    shown.replace(shown.find(example.string()), example.string().size(),
                  "/home/me/quillmark/examples/today");
    std::ifstream readme(example / "../../README.md");
    EXPECT_THAT(std::string(std::istreambuf_iterator<char>(readme), {}), testing::HasSubstr(shown));
    const auto first = json(words)["findings"][0];
    EXPECT_EQ(first["element"], "link");
    EXPECT_EQ(first["attribute"], "href");
    EXPECT_EQ(first["suggestion"], "images/logo.svg");
}

} // namespace
} // namespace quillmark::test

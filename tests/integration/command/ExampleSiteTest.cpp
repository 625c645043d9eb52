#include "integration/command/CommandBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quillmark::test {
namespace {

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

TEST(ExampleSite, HoldsWhatIsPlantedInIt) {
    const CommandBench bench;
    const auto json = bench.json({"--set", "IGNORECASE=0", "--set", "CHECK_DUPES=1",
                                  std::string(QUILLMARK_EXAMPLE) + "/index.html"});
    const auto& lists = json["lists"];
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

/// "kind page reference" of each finding, notes with "note " in front.
Words described(const nlohmann::json& findings) {
    Words lines;
    const std::string root = std::string(QUILLMARK_EXAMPLE_TODAY) + "/";
    for (const auto& finding : findings) {
        const std::string page = finding["page"];
        lines.push_back((finding["level"] == "note" ? "note " : "") +
                        finding["kind"].get<std::string>() + " " + page.substr(root.size()) + " " +
                        finding["reference"].get<std::string>());
    }
    return lines;
}

TEST(ExampleSite, OfTodayShowsEachKindOfFinding) {
    const CommandBench bench;
    const std::string start = std::string(QUILLMARK_EXAMPLE_TODAY) + "/index.html";
    const Words words = {"--rules", "web", "--set", "CHECK_DUPES=1", start};
    const auto json = bench.json(words);
    EXPECT_EQ(
        described(json["findings"]),
        (Words{"other-case index.html images/Logo.svg",
               "fragment-missing index.html images/icons.svg#loaf",
               "extension-left-out index.html about",
               "note folder-without-index index.html downloads/",
               "note fragment-missing index.html #/basket", "missing index.html images/oven@2x.png",
               "fragment-missing index.html menu/index.html#ryebread",
               "missing index.html /menu/prices.html",
               "missing site.webmanifest images/icon-512.png",
               "missing menu/index.html specials.html", "missing css/print.css bullet.png",
               "missing about.html images/harbor.png",
               "this-computer-only about.html file:///home/me/bakery/notes.html",
               "no-address about.html https://<your-server>/archive/",
               "other-form about.html cafe%CC%81.html",
               "dangling-link about.html downloads/menu-latest.pdf",
               "fragment-missing about.html #History", "note missing about.html contact.php"}));
    const auto& first = json["findings"][0];
    EXPECT_EQ(first["line"], 8);
    EXPECT_EQ(first["column"], 26);
    EXPECT_EQ(first["element"], "link");
    EXPECT_EQ(first["attribute"], "href");
    EXPECT_EQ(first["suggestion"], "images/logo.svg");
    EXPECT_EQ(json["lists"]["InvalidReferences"].size(), 15U);
    EXPECT_EQ(json["lists"]["UnusedList"].size(), 4U);
    EXPECT_EQ(json["duplicates"].size(), 1U);
    EXPECT_EQ(json["ignored"].size(), 4U);
    const Finished summary = bench.check(words);
    EXPECT_EQ(summary.status, 1);
    EXPECT_THAT(summary.out,
                testing::HasSubstr("8:26     images/Logo.svg           the name has other capital "
                                   "letters (did you mean images/logo.svg?)"));
}

} // namespace
} // namespace quillmark::test

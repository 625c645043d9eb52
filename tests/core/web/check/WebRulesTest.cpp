#include "core/web/check/WebBench.h"

#include <gmock/gmock.h>

#include <functional>

#include <sys/stat.h>

namespace quillmark::test {
namespace {

namespace fs = std::filesystem;

/// What is beside the page that a row writes.
const WebBench::Files Site = {
    {"a.html", "<p id=x>"},
    {"docs/index.html", "<p id=x>"},
    {"s/a.css", "@import url(no.css);\np{b:u;background:url( 'no.png' )}"},
    {"s/i.svg", "<svg><g id=\"a\"/></svg>"}};
const Lines EmptyFiles = {
    "a b.html",       "a.pdf",       "50%.html",    "coded%20name.html", "gr\xC3\xBC.html",
    "logo.gif",       ".well/a.txt", "docs/c.html", "home/home.html",    "images/logo.png",
    "images/map.png", "c/map.png",   "x/y/map.png"};

struct Row {
    const char* name;
    std::string page;         ///< index.html.
    std::string findings;     ///< As WebBench says them.
    std::string ignored = {}; ///< The same.
    std::function<void(WebBench&)> prepare = [](WebBench&) {};
};

const std::vector<Row> Rows = {
    {"TemplatesOnlyUse", "<template><a href=gone.html></template>", ""},
    {"WhatOnlyUsesMayNameAnyServer",
     "<template><a href=https://a.example/a.pdf></template><a href=https://a.example/a.pdf>", "",
     "another site: https://a.example/a.pdf"},
    {"RepeatedWithOtherFragments",
     "<a href=a.html#x><a href=a.html#y><a href=a.html><a href=' a.html#x '><a href='a.html#z '>",
     "fragment-missing 1:26 a.html#y; fragment-missing 1:80 a.html#z "},
    {"NothingInFrontOfAFragment", "<p id=x><a href=#x><a href=''><a href=#y>",
     "fragment-missing 1:39 #y"},
    {"BaseForAll", "<base href=docs/><a href=c.html><a href=#x>", ""},
    {"BaseOfAnotherSite", "<base href=https://b.example/><a href=c.html>", "",
     "another site: c.html"},
    {"InnerBlanks", "<a href='a b.html'><a href='a%20b.html'>", ""},
    {"PercentDecodedOnce", "<a href=50%.html><a href=50%25.html>", ""},
    {"EncodedSlashIsNoSeparator", "<a href=docs%2Fc.html>", "missing 1:9 docs%2Fc.html"},
    {"NameHoldsAnEncoding", "<a href=coded%20name.html>",
     "missing 1:9 coded%20name.html -> coded%2520name.html"},
    {"Utf8InPaths", "<a href=gr\xC3\xBC.html><a href=gr%C3%BC.html>", ""},
    {"OwnAddress", "<a href=https://www.site.example/docs/a.html><a href=/docs/a.html><a href=/b>",
     "", "above the top of the site: /b",
     [](WebBench& bench) { bench.settings.profile.SITE_URL = "https://www.site.example/docs/"; }},
    {"HostAlias", "<a href=https://www.site.example/b.html>",
     "missing 1:9 https://www.site.example/b.html", "",
     [](WebBench& bench) { bench.settings.profile.HOST_ALIAS = "www.site.example"; }},
    {"OwnAddressUnknown", "<a href=https://www.site.example/a.html>", "",
     "another site: https://www.site.example/a.html"},
    {"FolderByItsIndex", "<a href=docs><a href=docs/><a href=docs/#x><a href=.>", ""},
    {"FolderWithoutIndex", "<a href=home/>", "note folder-without-index 1:9 home/"},
    {"OtherIndex", "<a href=home/>", "", "",
     [](WebBench& bench) { bench.options.indexNames = {"home.html"}; }},
    {"ExtensionLeftOut", "<a href=a>", "extension-left-out 1:9 a -> a.html"},
    {"CleanUrls", "<a href=a>", "", "", [](WebBench& bench) { bench.options.cleanUrls = true; }},
    {"OtherCase", "<img src=Logo.GIF>", "other-case 1:10 Logo.GIF -> logo.gif"},
    {"OtherCaseAccepted", "<img src=Logo.GIF>", "", "",
     [](WebBench& bench) { bench.settings.configuration.IGNORECASE = 1; }},
    {"OtherForm", "<a href=gru\xCC\x88.html>",
     "other-form 1:9 gru\xCC\x88.html -> gr\xC3\xBC.html"},
    {"Fragments",
     "<a href=a.html#x><a href=a.html#y><a href=#top><a href=#TOP><a href=#>"
     "<a href='a.html#x:~:text=z'><a href='#top:~:text=z'>",
     "fragment-missing 1:26 a.html#y"},
    {"FragmentsDecoded", "<a href=#%C3%BC><p id='\xC3\xBC'><a href=#a%20b><p id='a%20b'>", ""},
    {"FragmentCase", "<a href=#Part><p id=part>", "fragment-missing 1:9 #Part -> #part"},
    {"UseMap", "<img usemap=#m><map name=m></map><img usemap=#n>", "fragment-missing 1:46 #n"},
    {"Routes", "<a href=#/home><a href=#!/home>",
     "note fragment-missing 1:9 #/home; note fragment-missing 1:24 #!/home"},
    {"FragmentOfNoPage", "<a href=a.pdf#page=2>", ""},
    {"UseIntoSvg", "<svg><use href=s/i.svg#a /><use href=s/i.svg#b /></svg>",
     "fragment-missing 1:38 s/i.svg#b"},
    {"Sheets", "<link rel=stylesheet href=s/a.css><style>p{background:url(gone.png)}</style>",
     "missing 1:59 gone.png; missing 1:13 no.css; missing 2:24 no.png"},
    {"FormsMayBePrograms", "<form action=send.php><button formaction=/cgi-bin/x>",
     "note missing 1:14 send.php; note missing 1:42 /cgi-bin/x"},
    {"OtherSchemes", "<a href=mailto:a@b><a href='javascript:x()'><img src=data:,x>", "",
     "other scheme: mailto:a@b; other scheme: javascript:x(); other scheme: data:,x"},
    {"ThisComputer", "<a href='file:///C:/a.html'><img src='C:\\a.png'><img src=/etc/passwd>",
     "this-computer-only 1:10 file:///C:/a.html; this-computer-only 1:39 C:\\a.png; "
     "this-computer-only 1:58 /etc/passwd"},
    {"NoAddress", "<a href='http://<server>/'><a href='https://a.example:port/'><a href='http://'>",
     "no-address 1:10 http://<server>/; no-address 1:37 https://a.example:port/; "
     "no-address 1:71 http://"},
    {"HiddenFiles", "<a href=.well/a.txt>", ""},
    {"EveryOccurrence", "<a href=b1>\n<a href=b1>", "missing 1:9 b1; missing 2:9 b1"},
    {"SameNameElsewhere", "<img src=logo.png>", "missing 1:10 logo.png -> images/logo.png"},
    {"FolderMisspelt", "<img src=imags/map.png?v=1>",
     "missing 1:10 imags/map.png?v=1 -> images/map.png?v=1"},
    {"Excluded", "<a href=drafts/b.html><a href=https://b.example/>", "",
     "excluded: drafts/b.html; another site: https://b.example/",
     [](WebBench& bench) { bench.options.exclude = {"^drafts/"}; }},
    {"DeeperThanListed", "<a href=x/y/b.html>", "", "folder not listed: x/y/b.html",
     [](WebBench& bench) { bench.settings.profile.MAX_LEVELS = 1; }},
};

TEST(WebRules, DecideEachQuestion) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.name);
        WebBench bench(Site);
        for (const std::string& name : EmptyFiles) {
            bench.site.write(name, "");
        }
        bench.site.write("index.html", row.page);
        row.prepare(bench);
        EXPECT_EQ(bench.check(), RunOutcome::Finished);
        EXPECT_EQ(bench.findings(), row.findings);
        EXPECT_EQ(bench.ignored(), row.ignored);
    }
}

TEST(WebRules, FollowLinksThatStayInside) {
    WebBench bench(
        {{"index.html", "<a href=copy.html><a href=folder/b.html><a href=loop/loop/a.html>"
                        "<a href=gone.html><a href=out/x><a href=away/>"},
         {"a.html", "<a href=index.html>"},
         {"real/b.html", "<a href=../a.html#z>"}});
    bench.program.write("x", "");
    fs::create_symlink("a.html", bench.site.path() / "copy.html");
    fs::create_symlink("real", bench.site.path() / "folder");
    fs::create_symlink(".", bench.site.path() / "loop");
    fs::create_symlink("nothing", bench.site.path() / "gone.html");
    fs::create_symlink(bench.program.path(), bench.site.path() / "out");
    fs::create_symlink("/nowhere", bench.site.path() / "away");
    bench.check();
    EXPECT_EQ(bench.findings(), "dangling-link 1:74 gone.html; dangling-link 1:106 away/; "
                                "fragment-missing 1:9 ../a.html#z");
    EXPECT_EQ(bench.below(bench.lists.GetFileList),
              "/index.html /copy.html /folder/b.html /a.html");
    EXPECT_EQ(bench.below(bench.lists.UnusedList), "");
}

TEST(WebRules, EndWhereFoldersLinkToEachOther) {
    WebBench bench(WebBench::Files{{"index.html", "<a href=a/p.html>"}});
    const Lines folders = {"a", "b", "c", "d", "e", "f", "g", "h"};
    for (const std::string& from : folders) {
        std::string links;
        fs::create_directory(bench.site.path() / from);
        for (const std::string& to : folders) {
            links += "<a href=" + to + "/p.html>";
            fs::create_symlink("../" + to, bench.site.path() / from / to);
        }
        bench.site.write(from + "/p.html", links);
    }
    EXPECT_EQ(bench.check(), RunOutcome::Finished);
    EXPECT_EQ(bench.findings(), "");
    EXPECT_LE(bench.results.pages.size(), 1U + 8U + 8U * 8U);
}

TEST(WebRules, CallFilesUnusedThatNothingNames) {
    WebBench bench({{"index.html", "<link rel=manifest href=m.json><meta property=og:image "
                                   "content=https://www.site.example/og.png>"},
                    {"m.json", R"({"icons": [{"src": "icon.png"}]})"},
                    {"icon.png", ""},
                    {"og.png", ""},
                    {"sitemap.xml", "<urlset><url><loc>https://www.site.example/listed.html</loc>"
                                    "</url></urlset>"},
                    {"listed.html", "<img src=used.png>"},
                    {"used.png", ""},
                    {"robots.txt", ""},
                    {".htaccess", ""},
                    {"kept/draft.txt", ""},
                    {"orphan.html", "<a href=twin.html>"},
                    {"twin.html", ""}});
    bench.options.keep = {"^kept/"};
    bench.check();
    EXPECT_EQ(bench.below(bench.lists.UnusedList), "/orphan.html /twin.html");
    bench.options.allPages = true;
    bench.check();
    EXPECT_EQ(bench.below(bench.lists.UnusedList), "/orphan.html")
        << "what an orphan names is named";
}

TEST(WebRules, CheckAFolderWithinTheSite) {
    WebBench bench({{"docs/index.html", "<a href=../a.html><a href=/b.html>"}, {"a.html", ""}});
    bench.settings.profile.SITE_ROOT = ToBackSlashes(bench.site.path().string());
    bench.check("docs/index.html");
    EXPECT_EQ(bench.findings(), "missing 1:27 /b.html");
    bench.settings.profile.SITE_ROOT = ToBackSlashes(bench.program.path().string());
    EXPECT_EQ(bench.check("docs/index.html"), RunOutcome::Failed);
}

/// Pages that name each other, and some that are not there.
WebBench::Files tangledSite() {
    WebBench::Files files = {{"index.html", "<a href=p1.html><a href=p7.html>"}};
    for (int i = 0; i < 300; ++i) {
        const std::string name = "p" + std::to_string(i);
        std::string page = "<p id=" + name + ">";
        for (int j = 1; j < 9; ++j) {
            page += "\n<a href=p" + std::to_string(i * j % 331) + ".html#p" +
                    std::to_string(i % 50) + ">";
        }
        files[name + ".html"] = page;
    }
    return files;
}

TEST(WebRules, FindTheSameWithOneThreadAndMany) {
    WebBench bench(tangledSite());
    const auto found = [&bench](unsigned threads) {
        bench.options.threads = threads;
        bench.check();
        return Lines{bench.findings(), bench.below(bench.lists.GetFileList),
                     bench.below(bench.lists.ReferenceList)};
    };
    EXPECT_EQ(found(1), found(7));
    EXPECT_GT(bench.results.findings.size(), 1000U);
}

TEST(WebRules, StopWhereTheyAre) {
    WebBench bench(tangledSite());
    bench.messages.onPost = [&bench](std::string_view text) {
        if (text == "Reading Pages") {
            bench.run.stop();
        }
    };
    EXPECT_EQ(bench.check(), RunOutcome::Aborted);
    EXPECT_EQ(bench.below(bench.lists.GetFileList), "");
    EXPECT_EQ(bench.below(bench.lists.UnusedList), "") << "nobody knows what the other pages use";
}

TEST(WebRules, FindOnAHostWhatTheyFindOnTheDisk) {
    WebBench bench({{"index.html", "<link rel=stylesheet href=s.css><a href=no.html><a href=#x>"},
                    {"s.css", "p{background:url(no.png)}"},
                    {"left over.txt", "1"},
                    {"x/index.html", "of another size"},
                    {"x/left over.txt", "2"},
                    {"x/s.txt", "p{background:url(no.png)}"}});
    bench.settings.profile.CHECK_DUPES = 1;
    for (const bool remote : {false, true}) {
        SCOPED_TRACE(remote);
        EXPECT_EQ(remote ? bench.runRemote() : bench.check(), RunOutcome::Finished);
        projectLists(bench.results, bench.lists);
        EXPECT_EQ(bench.findings(), "missing 1:41 no.html; fragment-missing 1:57 #x; "
                                    "missing 1:18 no.png");
        EXPECT_EQ(bench.below(bench.lists.GetFileList), "/index.html /s.css");
        EXPECT_EQ(bench.below(bench.lists.UnusedList),
                  "/left over.txt /x/index.html /x/left over.txt /x/s.txt");
        EXPECT_EQ(bench.below(bench.lists.DuplicateList),
                  remote ? "/left over.txt /x/left over.txt" : "/s.css /x/s.txt")
            << "by name and size, or by bytes";
    }
}

TEST(WebRules, SayThatAPageWasChangedMeanwhile) {
    for (const bool removed : {false, true}) {
        WebBench bench({{"index.html", "<a href=no.html><a href=a.html#x>"}, {"a.html", ""}});
        bench.window.onTitle = [&bench, removed](std::string_view title) {
            if (title == "Checking References") {
                const fs::path page = bench.site.write("index.html", "<p>");
                fs::rename(page, removed ? bench.site.path() / "moved.html" : page);
            }
        };
        EXPECT_EQ(bench.check(), RunOutcome::Finished);
        EXPECT_EQ(bench.findings(), "missing 1:9 no.html");
        EXPECT_THAT(bench.messages.normals,
                    testing::Contains(testing::HasSubstr(
                        removed ? "/index.html again: File not found"
                                : "/index.html was changed while it was checked")));
    }
}

TEST(WebRules, TellOfWhatCannotBeRead) {
    WebBench bench(WebBench::Files{{"index.html", "<a href=a.html>"}});
    bench.options.exclude = {"("};
    EXPECT_EQ(bench.check(), RunOutcome::Failed);
    bench.options.exclude.clear();
    ASSERT_EQ(mkfifo((bench.site.path() / "a.html").c_str(), 0600), 0);
    EXPECT_EQ(bench.check(), RunOutcome::Finished);
    EXPECT_EQ(bench.findings(), "missing 1:9 a.html") << "a pipe is no page";
}

} // namespace
} // namespace quillmark::test

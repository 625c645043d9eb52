#include "core/web/check/WebBench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include <sys/stat.h>

namespace quillmark::test {
namespace {

struct Row {
    const char* name;
    std::string page;           ///< index.html.
    std::string findings;       ///< As WebBench says them.
    std::string ignored = {};   ///< The same.
    WebBench::Files files = {}; ///< Beside index.html.
    std::function<void(WebBench&)> prepare = [](WebBench&) {};
};

const WebBench::Files OnePage = {{"a.html", "<p id=x>"}};

const std::vector<Row> Rows = {
    {"FirstAttributeOfAName", "<a href=a.html href=gone.html>", "", "", OnePage},
    {"UnfinishedTag", "<a href=gone.html", ""},
    {"CarriageReturnEndsALine", "\r\r<a href=b.html>", "missing 3:9 b.html", "", OnePage},
    {"CommentsAreInert", "<!-- <a href=gone.html> -->", ""},
    {"ScriptsAreText", "<script>'<a href=gone.html>'</script>", ""},
    {"NoscriptIsMarkup", "<noscript><img src=gone.png></noscript>", "missing 1:20 gone.png"},
    {"TemplatesOnlyUse", "<template><a href=gone.html></template>", ""},
    {"BaseForAll",
     "<base href=docs/><a href=c.html><a href=#x>",
     "",
     "",
     {{"docs/c.html", ""}, {"docs/index.html", "<p id=x>"}}},
    {"BaseOfAnotherSite", "<base href=https://b.example/><a href=c.html>", "",
     "another site: c.html"},
    {"BlanksAndLineBreaks", "<a href=' \n a.h\ntml\t'>", "", "", OnePage},
    {"InnerBlanks", "<a href='a b.html'><a href='a%20b.html'>", "", "", {{"a b.html", ""}}},
    {"Backslash", "<a href='docs\\c.html'>", "", "", {{"docs/c.html", ""}}},
    {"PercentDecodedOnce", "<a href=50%.html><a href=50%25.html>", "", "", {{"50%.html", ""}}},
    {"EncodedSlashIsNoSeparator",
     "<a href=docs%2Fc.html>",
     "missing 1:9 docs%2Fc.html",
     "",
     {{"docs/c.html", ""}}},
    {"NameHoldsAnEncoding",
     "<a href=a%20b.html>",
     "missing 1:9 a%20b.html -> a%2520b.html",
     "",
     {{"a%20b.html", ""}}},
    {"Utf8InPaths",
     "<a href=gr\xC3\xBC.html><a href=gr%C3%BC.html>",
     "",
     "",
     {{"gr\xC3\xBC.html", ""}}},
    {"QueryIsNoName", "<a href=a.html?x=1>", "", "", OnePage},
    {"SchemeRelative", "<a href=//b.example/x>", "", "another site: //b.example/x"},
    {"RootRelative", "<a href=/a.html><a href=/docs/../a.html>", "", "", OnePage},
    {"AboveTheTop", "<a href=../../x.html>", "", "above the top of the site: ../../x.html"},
    {"DotsEncoded", "<a href=x/%2e%2E/./a.html>", "", "", OnePage},
    {"OwnAddress", "<a href=https://www.site.example/docs/a.html><a href=/docs/a.html><a href=/b>",
     "", "above the top of the site: /b", OnePage,
     [](WebBench& bench) { bench.settings.profile.SITE_URL = "https://www.site.example/docs/"; }},
    {"HostAlias", "<a href=https://www.site.example/b.html>",
     "missing 1:9 https://www.site.example/b.html", "", OnePage,
     [](WebBench& bench) { bench.settings.profile.HOST_ALIAS = "www.site.example"; }},
    {"OwnAddressUnknown", "<a href=https://www.site.example/a.html>", "",
     "another site: https://www.site.example/a.html"},
    {"FolderByItsIndex",
     "<a href=docs><a href=docs/><a href=docs/#x><a href=.>",
     "",
     "",
     {{"docs/index.html", "<p id=x>"}}},
    {"FolderWithoutIndex",
     "<a href=docs/>",
     "note folder-without-index 1:9 docs/",
     "",
     {{"docs/c.html", ""}}},
    {"OtherIndex",
     "<a href=docs/>",
     "",
     "",
     {{"docs/home.html", ""}},
     [](WebBench& bench) { bench.options.indexNames = {"home.html"}; }},
    {"ExtensionLeftOut", "<a href=a>", "extension-left-out 1:9 a -> a.html", "", OnePage},
    {"CleanUrls", "<a href=a>", "", "", OnePage,
     [](WebBench& bench) { bench.options.cleanUrls = true; }},
    {"OtherCase",
     "<img src=Logo.GIF>",
     "other-case 1:10 Logo.GIF -> logo.gif",
     "",
     {{"logo.gif", ""}}},
    {"OtherCaseAccepted",
     "<img src=Logo.GIF>",
     "",
     "",
     {{"logo.gif", ""}},
     [](WebBench& bench) { bench.settings.configuration.IGNORECASE = 1; }},
    {"OtherForm",
     "<a href=e\xCC\x81.html>",
     "other-form 1:9 e\xCC\x81.html -> \xC3\xA9.html",
     "",
     {{"\xC3\xA9.html", ""}}},
    {"Fragments",
     "<a href=a.html#x><a href=a.html#y><a href=#top><a href=#TOP><a href=#>"
     "<a href='a.html#x:~:text=z'>",
     "fragment-missing 1:26 a.html#y", "", OnePage},
    {"FragmentsDecoded", "<a href=#%C3%BC><p id='\xC3\xBC'><a href=#a%20b><p id='a%20b'>", ""},
    {"FragmentCase", "<a href=#Part><p id=part>", "fragment-missing 1:9 #Part -> #part"},
    {"FragmentByName", "<a href=#n><a name=n>", ""},
    {"UseMap", "<img usemap=#m><map name=m></map><img usemap=#n>", "fragment-missing 1:46 #n"},
    {"Routes", "<a href=#/home><a href=#!/home>",
     "note fragment-missing 1:9 #/home; note fragment-missing 1:24 #!/home"},
    {"FragmentOfNoPage", "<a href=a.pdf#page=2>", "", "", {{"a.pdf", ""}}},
    {"UseIntoSvg",
     "<svg><use href=i.svg#a /><use href=i.svg#b /></svg>",
     "fragment-missing 1:36 i.svg#b",
     "",
     {{"i.svg", "<svg><g id=\"a\"/></svg>"}}},
    {"Srcset", "<img srcset='a.png 1x, b,c.png 2x'>", "missing 1:24 b,c.png", "", {{"a.png", ""}}},
    {"Sheets",
     "<link rel=stylesheet href=s/a.css><style>p{background:url(gone.png)}</style>",
     "missing 1:59 gone.png; missing 1:13 no.css; missing 2:24 no.png",
     "",
     {{"s/a.css", "@import url(no.css);\np{b:u;background:url( 'no.png' )}"}}},
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
    {"HiddenFiles", "<a href=.well/a.txt>", "", "", {{".well/a.txt", ""}}},
    {"EveryOccurrence", "<a href=b1>\n<a href=b1>", "missing 1:9 b1; missing 2:9 b1"},
    {"SameNameElsewhere",
     "<img src=logo.png>",
     "missing 1:10 logo.png -> images/logo.png",
     "",
     {{"images/logo.png", ""}}},
    {"FolderMisspelt",
     "<img src=imags/a.png?v=1>",
     "missing 1:10 imags/a.png?v=1 -> images/a.png?v=1",
     "",
     {{"images/a.png", ""}, {"x/y/a.png", ""}, {"x/z/a.png", ""}}},
    {"Excluded",
     "<a href=drafts/b.html><a href=https://b.example/>",
     "",
     "excluded: drafts/b.html; another site: https://b.example/",
     {},
     [](WebBench& bench) { bench.options.exclude = {"^drafts/"}; }},
    {"DeeperThanListed",
     "<a href=x/y/b.html>",
     "",
     "folder not listed: x/y/b.html",
     {{"x/y/b.html", ""}},
     [](WebBench& bench) { bench.settings.profile.MAX_LEVELS = 1; }},
};

TEST(WebRules, DecideEachQuestion) {
    for (const Row& row : Rows) {
        SCOPED_TRACE(row.name);
        WebBench bench;
        bench.write(row.files);
        bench.site.write("index.html", row.page);
        row.prepare(bench);
        EXPECT_EQ(bench.check(), RunOutcome::Finished);
        EXPECT_EQ(bench.findings(), row.findings);
        EXPECT_EQ(bench.ignored(), row.ignored);
    }
    EXPECT_EQ(Rows.size(), 52U);
}

TEST(WebRules, FollowLinksThatStayInside) {
    namespace fs = std::filesystem;
    WebBench bench;
    bench.write({{"index.html", "<a href=copy.html><a href=folder/b.html><a href=loop/loop/a.html>"
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
    EXPECT_EQ(bench.pages(), "index.html copy.html folder/b.html a.html");
    EXPECT_EQ(bench.unused(), "");
}

TEST(WebRules, EndWhereFoldersLinkToEachOther) {
    WebBench bench;
    std::string links;
    for (char folder = 'a'; folder <= 'h'; ++folder) {
        links += std::string("<a href=") + folder + "/p.html>";
    }
    bench.write({{"index.html", "<a href=a/p.html>"}});
    for (char from = 'a'; from <= 'h'; ++from) {
        bench.write({{std::string(1, from) + "/p.html", links}});
        for (char to = 'a'; to <= 'h'; ++to) {
            std::filesystem::create_symlink(std::string("../") + to, bench.site.path() /
                                                                         std::string(1, from) /
                                                                         std::string(1, to));
        }
    }
    EXPECT_EQ(bench.check(), RunOutcome::Finished);
    EXPECT_EQ(bench.findings(), "");
    EXPECT_LE(bench.results.pages.size(), 1U + 8U + 8U * 8U);
}

TEST(WebRules, CallFilesUnusedThatNothingNames) {
    WebBench bench;
    bench.write({{"index.html", "<link rel=manifest href=m.json><meta property=og:image "
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
    EXPECT_EQ(bench.unused(), "orphan.html twin.html");
    bench.options.allPages = true;
    bench.check();
    EXPECT_EQ(bench.unused(), "orphan.html") << "what an orphan names is named";
}

TEST(WebRules, FindEqualFilesWhateverTheirNames) {
    WebBench bench;
    bench.write({{"index.html", ""}, {"a.txt", "same"}, {"x/b.txt", "same"}, {"c.txt", "else"}});
    bench.settings.profile.CHECK_DUPES = 1;
    bench.check();
    EXPECT_EQ(bench.below(bench.lists.DuplicateList), "/a.txt /x/b.txt");
}

TEST(WebRules, CheckAFolderWithinTheSite) {
    WebBench bench;
    bench.write({{"docs/index.html", "<a href=../a.html><a href=/b.html>"}, {"a.html", ""}});
    bench.settings.profile.SITE_ROOT = ToBackSlashes(bench.site.path().string());
    bench.check("docs/index.html");
    EXPECT_EQ(bench.findings(), "missing 1:27 /b.html");
    bench.settings.profile.SITE_ROOT = ToBackSlashes(bench.program.path().string());
    EXPECT_EQ(bench.check("docs/index.html"), RunOutcome::Failed);
}

/// Pages that name each other, and some that are not there.
WebBench::Files tangledSite() {
    WebBench::Files files;
    for (int i = 0; i < 300; ++i) {
        std::string page = "<p id=p" + std::to_string(i) + ">";
        for (int j = 1; j < 9; ++j) {
            const int other = i * j % 331;
            page +=
                "\n<a href=p" + std::to_string(other) + ".html#p" + std::to_string(i % 50) + ">";
        }
        files["p" + std::to_string(i) + ".html"] = page;
    }
    files["index.html"] = "<a href=p1.html><a href=p7.html>";
    return files;
}

TEST(WebRules, FindTheSameWithOneThreadAndMany) {
    WebBench bench;
    bench.write(tangledSite());
    bench.options.threads = 1;
    bench.check();
    const std::string findings = bench.findings();
    const std::string pages = bench.pages();
    const std::string references = bench.below(bench.lists.ReferenceList);
    EXPECT_GT(bench.results.findings.size(), 1000U);
    bench.options.threads = 7;
    bench.check();
    EXPECT_EQ(bench.findings(), findings);
    EXPECT_EQ(bench.pages(), pages);
    EXPECT_EQ(bench.below(bench.lists.ReferenceList), references);
}

TEST(WebRules, StopWhereTheyAre) {
    WebBench bench;
    bench.write(tangledSite());
    bench.messages.onPost = [&bench](std::string_view text) {
        if (text == "Reading Pages") {
            bench.run.stop();
        }
    };
    EXPECT_EQ(bench.check(), RunOutcome::Aborted);
    EXPECT_EQ(bench.pages(), "");
    EXPECT_EQ(bench.unused(), "") << "nobody knows what the other pages use";
}

TEST(WebRules, FindOnAHostWhatTheyFindOnTheDisk) {
    WebBench bench;
    bench.write({{"index.html", "<link rel=stylesheet href=s.css><a href=no.html><a href=#x>"},
                 {"s.css", "p{background:url(no.png)}"},
                 {"left over.txt", "1"},
                 {"x/left over.txt", "2"}});
    bench.settings.profile.CHECK_DUPES = 1;
    EXPECT_EQ(bench.runRemote(), RunOutcome::Finished);
    EXPECT_EQ(bench.findings(), "missing 1:41 no.html; fragment-missing 1:57 #x; "
                                "missing 1:18 no.png");
    EXPECT_EQ(bench.pages(), "index.html s.css");
    EXPECT_EQ(bench.unused(), "left over.txt x/left over.txt");
    EXPECT_EQ(bench.results.duplicates.size(), 1U);
}

TEST(WebRules, SayThatAPageWasChangedMeanwhile) {
    using Change = std::pair<std::string, std::string>;
    for (const Change& row : {Change("<p>", "/index.html was changed while it was checked"),
                              Change("", "/index.html again: File not found")}) {
        const std::string& message = row.second;
        WebBench bench;
        bench.write({{"index.html", "<a href=no.html><a href=a.html#x>"}, {"a.html", ""}});
        bench.window.onTitle = [&bench, change = row.first](std::string_view title) {
            if (title == "Checking References" && change.empty()) {
                std::filesystem::remove(bench.site.path() / "index.html");
            } else if (title == "Checking References") {
                bench.write({{"index.html", change}});
            }
        };
        EXPECT_EQ(bench.check(), RunOutcome::Finished);
        EXPECT_EQ(bench.findings(), "missing 1:9 no.html");
        const Lines& posted = bench.messages.normals;
        EXPECT_TRUE(std::any_of(posted.begin(), posted.end(), [&message](const std::string& line) {
            return line.find(message) != std::string::npos;
        })) << message;
    }
}

TEST(WebRules, TellOfWhatCannotBeRead) {
    WebBench bench;
    bench.write({{"index.html", "<a href=a.html>"}, {"a.html", ""}});
    bench.options.exclude = {"("};
    EXPECT_EQ(bench.check(), RunOutcome::Failed);
    bench.options.exclude.clear();
    std::filesystem::remove(bench.site.path() / "a.html");
    ASSERT_EQ(mkfifo((bench.site.path() / "a.html").c_str(), 0600), 0);
    EXPECT_EQ(bench.check(), RunOutcome::Finished);
    EXPECT_EQ(bench.findings(), "missing 1:9 a.html") << "a pipe is no page";
}

} // namespace
} // namespace quillmark::test

#include "engine/resolve/BaseUrl.h"
#include "engine/resolve/ReferenceResolver.h"
#include "engine/resolve/UpperLevels.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace quillmark::test {
namespace {

class NoMapFiles : public MapFileReader {
public:
    int ProcessMapFile(std::string_view /*directory*/, std::string_view fileName) override {
        ADD_FAILURE() << "opened " << fileName;
        return 0;
    }
};

struct ReferenceCase {
    const char* name;
    std::string reference;
    std::string filed;   ///< Empty: ignored.
    std::string message; ///< Of the ignoring.
    std::string alias = "www.site.org";
    std::int16_t rootLevel = 0;
};

const std::vector<ReferenceCase>& referenceCases() {
    static const std::vector<ReferenceCase> cases = {
        {"Plain", "page.html", "/www/sub/page.html", ""},
        {"Below", "images/a.gif", "/www/sub/images/a.gif", ""},
        {"OtherServer", "http://other.org/x.html", "", ""},
        {"NoAlias", "http://www.site.org/x.html", "", "", ""},
        {"Alias", "http://www.site.org/docs/a.html", "docs/a.html", ""},
        {"AliasInAnyCase", "HTTP://WWW.Site.org/a.html", "a.html", ""},
        {"AliasWithUpperLevels", "http://www.site.org/../a.html",
         "/www/sub/http://www.site.org/../a.html", ""},
        {"Mailto", "mailto:me@site.org", "", ""},
        {"PrefixAnywhereInTheDirectory", "go/ftp:/x", "", ""},
        {"PrefixInTheNameOnly", "a/b.cgi?http:x", "/www/sub/a/b.cgi?http:x", ""},
        {"ColonWithoutSeparator", "b.cgi?http:x", "", ""},
        {"Root", "/index.html", "", "Ignored because of leading /:/index.html"},
        {"RootAllowed", "/index.html", "/www/sub//index.html", "", "", 1},
        {"Topic", "#top", "", "Ignored because of leading #:#top"},
        {"TopicOfAPage", "page.html#top", "/www/sub/page.html#top", ""},
        {"Up", "../a.html", "/www/a.html", ""},
        {"UpTwice", "../../a.html", "", "Ignored because of leading ../:../../a.html"},
        {"UpShortRemainder", "../x.js", "/www/../x.js", ""},
        {"Dot", "./a.html", "", "Ignored because of leading .:./a.html"},
        {"DotDirectory", ".hidden/a.html", "", "Ignored because of leading .:.hidden/a.html"},
        {"DotFile", ".htaccess", "/www/sub/.htaccess", ""},
        {"Map", "menu.map", "/www/sub/menu.map", ""},
        {"DirectoryOnly", "images/", "/www/sub/images/", ""},
    };
    return cases;
}

struct ResolverBench : RunBench {
    ListLimit limit{messages, state};
    FiledReferences references{lists};
    NoMapFiles maps;
    ReferenceResolver resolver{context, limit, references, maps};

    ResolverBench() {
        state.currentDirectory = "/www/sub/";
        state.currentFile = "/www/sub/page.html";
    }
    void add(const std::string& reference) {
        const PathParser parser(reference);
        resolver.MakeAddition(parser.Path(), parser.FileName(), reference);
    }
};

TEST(Resolver, FilesOrIgnoresEachReference) {
    for (const ReferenceCase& row : referenceCases()) {
        SCOPED_TRACE(row.name);
        ResolverBench bench;
        bench.settings.profile.HOST_ALIAS = row.alias;
        bench.settings.profile.ROOT_LEVEL = row.rootLevel;
        bench.add(row.reference);
        const bool ignored = row.filed.empty();
        EXPECT_EQ(linesOf(bench.lists.ReferenceList), ignored ? Lines{} : Lines{row.filed});
        EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), ignored ? Lines{row.reference} : Lines{});
        EXPECT_EQ(
            linesOf(ignored ? bench.lists.IgnoredReferencesFrom : bench.lists.ReferenceListFrom),
            Lines{"/www/sub/page.html"});
        EXPECT_EQ(bench.messages.normals, row.message.empty() ? Lines{} : Lines{row.message});
    }
}

/// Against the plain walk over both lists, with pages that come back and lines that are taken out.
TEST(Resolver, FilesAReferenceOnceAPage) {
    ResolverBench bench;
    std::mt19937 random(1);
    std::vector<std::pair<std::string, std::string>> filed;
    for (int i = 0; i < 2000; ++i) {
        bench.state.currentFile = "/www/sub/" + std::to_string(random() % 5);
        const std::string reference =
            (random() % 2 == 0 ? "a" : "A") + std::to_string(random() % 20);
        bench.add(reference);
        const std::pair entry("/www/sub/" + reference, bench.state.currentFile);
        if (std::find(filed.begin(), filed.end(), entry) == filed.end()) {
            filed.push_back(entry);
        }
        if (random() % 10 == 0) {
            const auto taken = static_cast<int>(random() % filed.size());
            bench.references.remove(taken);
            filed.erase(filed.begin() + taken);
        }
    }
    ASSERT_EQ(static_cast<std::size_t>(bench.lists.ReferenceListFrom.Count()), filed.size());
    for (int i = 0; i < bench.lists.ReferenceList.Count(); ++i) {
        const auto& entry = filed[static_cast<std::size_t>(i)];
        EXPECT_EQ(bench.lists.ReferenceList.Line(i), entry.first);
        EXPECT_EQ(bench.lists.ReferenceListFrom.Line(i), entry.second);
    }
}

TEST(Resolver, NamesTheListThatIsFull) {
    struct FullCase {
        const char* name;
        std::string reference;
        std::string list;
    };
    for (const FullCase& row : {FullCase{"Filed", "page.html", "Reference List"},
                                FullCase{"Absolute", "ftp://x/", "Ignored References"},
                                FullCase{"Topic", "#t", "Ignored References List"}}) {
        SCOPED_TRACE(row.name);
        ResolverBench bench;
        for (int i = 1; i < ResultList::Maximum; ++i) {
            bench.references.append(std::to_string(i), "x");
            bench.lists.IgnoredReferences.Append("x");
            bench.lists.IgnoredReferencesFrom.Append("x");
        }
        bench.add(row.reference);
        EXPECT_TRUE(bench.state.abort);
        EXPECT_EQ(bench.messages.normals.back(),
                  "Exceeded List Maximum (" + row.list + ") - List Truncated");
    }
}

TEST(Resolver, ATooShortUpperLevelFailsTheHostsRunOnly) {
    ResolverBench bench;
    EXPECT_THROW(bench.add("../a"), Failure);
    bench.state.localMode = true;
    bench.add("../a");
    bench.add("../");
    EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), (Lines{"../a", "../"}));
    EXPECT_EQ(bench.messages.normals,
              Lines(2, "An Error Has Occurred (Invalid procedure call or argument(5))"));
}

struct UpperCase3 {
    const char* name;
    std::string reference;
    std::string directory;
    bool follow;
    std::string path; ///< Empty: not allowed.
};

TEST(UpperLevels, ClimbAndStopAtTheRoot) {
    const std::vector<UpperCase3> cases = {
        {"One", "../a.html", "/www/sub/", false, "/www/a.html"},
        {"TwoFollowed", "../../a.html", "/www/sub/", true, "/a.html"},
        {"TwoNotFollowed", "../../a.html", "/www/sub/", false, ""},
        {"ShortKeepsItsGroup", "../x.js", "/www/sub/", false, "/www/../x.js"},
        {"ShortTwice", "../../x.js", "/a/b/c/", false, "/a/../x.js"},
        {"FromTop", "../a.html", "/www/", true, "/a.html"},
        {"FromTopNotFollowed", "../a.html", "/www/", false, ""},
        {"BeyondTheRoot", "../../../../a.html", "/www/", true, "/a.html"},
        {"RelativeDirectory", "../a.html", "www/", true, "a.html"},
        {"RootDirectory", "../a", "/", true, ""},
        {"InnerGroupStays", "../b/../c.html", "/www/sub/", false, "/www/b/../c.html"},
    };
    for (const UpperCase3& row : cases) {
        SCOPED_TRACE(row.name);
        const UpperLevels resolved = ResolveUpperLevels(row.reference, row.directory, row.follow);
        EXPECT_EQ(resolved.path, row.path);
        EXPECT_EQ(resolved.code, row.path.empty() ? 0 : -1);
    }
}

TEST(BaseUrl, IsGuessedFromTheHostName) {
    struct HostCase {
        const char* name;
        std::string host;
        std::string url;
        bool settled;
    };
    for (const HostCase& row : {HostCase{"Ftp", "ftp.site.org", "http://www.site.org/", true},
                                HostCase{"FtpInAnyCase", "Ftpx", "http://wwwx/", true},
                                HostCase{"Other", "site.org", "http://site.org/", true},
                                HostCase{"Numeric", "10.0.0.1", "http://10.0.0.1/", true},
                                HostCase{"ShortNumeric", "1", "http://1/", true},
                                HostCase{"Short", "ftp", "http://ftp/", false},
                                HostCase{"Empty", "", "http:///", false}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(computeBaseUrl(row.host).url, row.url);
        EXPECT_EQ(computeBaseUrl(row.host).settled, row.settled);
    }
}

} // namespace
} // namespace quillmark::test

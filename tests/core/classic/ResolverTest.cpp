#include "classic/resolve/BaseUrl.h"
#include "classic/resolve/ReferenceResolver.h"
#include "classic/resolve/UpperLevels.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

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
    std::string filed = {};   ///< Empty: ignored.
    std::string leading = {}; ///< What the message of the ignoring names.
    std::string alias = "www.site.org";
    std::int16_t rootLevel = 0;
};

struct ResolverBench : RunBench {
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
    const std::vector<ReferenceCase> cases = {
        {"Below", "images/a.gif", "/www/sub/images/a.gif"},
        {"OtherServer", "http://other.org/x.html", ""},
        {"NoAlias", "http://www.site.org/x.html", "", "", ""},
        {"Alias", "http://www.site.org/docs/a.html", "docs/a.html"},
        {"AliasInAnyCase", "HTTP://WWW.Site.org/a.html", "a.html"},
        {"AliasUpwards", "http://www.site.org/../a.html", "/www/sub/http://www.site.org/../a.html"},
        {"Mailto", "mailto:me@site.org", ""},
        {"PrefixAnywhereInTheDirectory", "go/ftp:/x", ""},
        {"PrefixInTheNameOnly", "a/b.cgi?http:x", "/www/sub/a/b.cgi?http:x"},
        {"ColonWithoutSeparator", "b.cgi?http:x", ""},
        {"Root", "/index.html", "", "/"},
        {"RootAllowed", "/index.html", "/www/sub//index.html", "", "", 1},
        {"Topic", "#top", "", "#"},
        {"TopicOfAPage", "page.html#top", "/www/sub/page.html#top"},
        {"Up", "../a.html", "/www/a.html"},
        {"UpTwice", "../../a.html", "", "../"},
        {"UpShortRemainder", "../x.js", "/www/../x.js"},
        {"Dot", "./a.html", "", "."},
        {"DotDirectory", ".hidden/a.html", "", "."},
        {"DotFile", ".htaccess", "/www/sub/.htaccess"},
        {"Map", "menu.map", "/www/sub/menu.map"},
        {"DirectoryOnly", "images/", "/www/sub/images/"},
    };
    for (const ReferenceCase& row : cases) {
        SCOPED_TRACE(row.name);
        ResolverBench bench;
        bench.settings.profile.HOST_ALIAS = row.alias;
        bench.settings.profile.ROOT_LEVEL = row.rootLevel;
        bench.add(row.reference);
        const bool ignored = row.filed.empty();
        EXPECT_EQ(linesOf(bench.lists.ReferenceList), ignored ? Lines{} : Lines{row.filed});
        EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), ignored ? Lines{row.reference} : Lines{});
        const auto& from =
            ignored ? bench.lists.IgnoredReferencesFrom : bench.lists.ReferenceListFrom;
        EXPECT_EQ(linesOf(from), Lines{"/www/sub/page.html"});
        const std::string said = "Ignored because of leading " + row.leading + ":" + row.reference;
        EXPECT_EQ(bench.messages.normals, row.leading.empty() ? Lines{} : Lines{said});
    }
}

TEST(Resolver, FilesAReferenceOnceAPage) {
    ResolverBench bench;
    const std::string page = bench.state.currentFile;
    const std::string other = "/www/sub/other.html";
    bench.add("a");
    bench.add("A");
    bench.add("a");
    bench.state.currentFile = other;
    bench.add("a");
    bench.references.remove(0);
    bench.add("a");
    bench.state.currentFile = page;
    bench.add("a");
    EXPECT_EQ(linesOf(bench.lists.ReferenceList),
              (Lines{"/www/sub/A", "/www/sub/a", "/www/sub/a"}));
    EXPECT_EQ(linesOf(bench.lists.ReferenceListFrom), (Lines{page, other, page}));
}

TEST(Resolver, ATooShortUpperLevelIsIgnoredOnTheDisk) {
    ResolverBench bench;
    bench.state.localMode = true;
    bench.add("../a");
    bench.add("../");
    EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), (Lines{"../a", "../"}));
    EXPECT_EQ(bench.messages.normals,
              Lines(2, "An Error Has Occurred (Invalid procedure call or argument(5))"));
}

struct ClimbCase {
    const char* name;
    std::string reference, directory;
    bool follow;
    std::string path; ///< Empty: not allowed.
};

TEST(UpperLevels, ClimbAndStopAtTheRoot) {
    const std::vector<ClimbCase> cases = {
        {"TwoFollowed", "../../a.html", "/www/sub/", true, "/a.html"},
        {"ShortTwice", "../../x.js", "/a/b/c/", false, "/a/../x.js"},
        {"FromTop", "../a.html", "/www/", true, "/a.html"},
        {"FromTopNotFollowed", "../a.html", "/www/", false, ""},
        {"BeyondTheRoot", "../../../../a.html", "/www/", true, "/a.html"},
        {"RelativeDirectory", "../a.html", "www/", true, "a.html"},
        {"RootDirectory", "../a", "/", true, ""},
        {"InnerGroupStays", "../b/../c.html", "/www/sub/", false, "/www/b/../c.html"},
    };
    for (const ClimbCase& row : cases) {
        SCOPED_TRACE(row.name);
        const UpperLevels resolved = ResolveUpperLevels(row.reference, row.directory, row.follow);
        EXPECT_EQ(resolved.path, row.path);
        EXPECT_EQ(resolved.code, row.path.empty() ? 0 : -1);
    }
}

struct HostCase {
    std::string host, url;
    bool settled;
};

TEST(BaseUrl, IsGuessedFromTheHostName) {
    for (const HostCase& row : std::vector<HostCase>{{"ftp.site.org", "http://www.site.org/", true},
                                                     {"Ftpx", "http://wwwx/", true},
                                                     {"site.org", "http://site.org/", true},
                                                     {"0", "http://0/", true},
                                                     {"9", "http://9/", true},
                                                     {"ftp", "http://ftp/", false},
                                                     {"", "http:///", false}}) {
        EXPECT_EQ(computeBaseUrl(row.host).url, row.url);
        EXPECT_EQ(computeBaseUrl(row.host).settled, row.settled) << row.host;
    }
}

} // namespace
} // namespace quillmark::test

#include "base/UpperCase.h"
#include "engine/verify/FilePasses.h"
#include "engine/verify/HtmlFile.h"
#include "engine/verify/IgnoredPasses.h"
#include "engine/verify/ReferencePasses.h"
#include "store/LineIndex.h"
#include "support/RunFakes.h"

#include <gtest/gtest.h>

#include <random>

namespace quillmark::test {
namespace {

/// Few names in many lines and two spellings: equal lines, and lines equal but for case, abound.
Lines generated(std::mt19937& random, int count) {
    static const Lines names = {"a.html",     "A.html",        "b.gif",         "B.GIF",
                                "#t",         "x.cgi",         "X.CGI",         "y.Cgi",
                                "http://s/a", "\xC3\xA9.html", "\xC3\x89.html", "\xE9.html"};
    static const Lines folders = {"/", "/w/", "/W/"};
    Lines lines;
    for (int i = 0; i < count; ++i) {
        lines.push_back(folders[random() % folders.size()] + names[random() % names.size()] +
                        std::to_string(random() % 3));
        if (random() % 4 == 0) {
            lines.back() = names[random() % names.size()];
        }
    }
    return lines;
}

bool same(const std::string& a, const std::string& b, bool ignoreCase) {
    return ignoreCase ? upperCase(a) == upperCase(b) : a == b;
}

bool holds(const Lines& lines, const std::string& text, bool ignoreCase) {
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return same(line, text, ignoreCase); });
}

Lines withoutEarlierDuplicates(Lines lines) {
    for (std::size_t i = 0; i < lines.size();) {
        const auto count = std::count(lines.begin(), lines.end(), lines[i]);
        if (count > 1) {
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
        } else {
            ++i;
        }
    }
    return lines;
}

struct Generated : RunBench {
    Lines files;
    Lines sizes;
    Lines referenced;
    Lines ignored;
    ListLimit limit{messages, state};
    FiledReferences references{lists};
    LineIndex fileIndex;
    ReferencePasses referencePasses;
    FilePasses filePasses{context, limit};

    Generated(unsigned seed, bool ignoreCase)
        : fileIndex(lists.FileList,
                    ignoreCase ? NameComparison::IgnoreCase : NameComparison::Exact),
          referencePasses(context, limit, references, fileIndex) {
        settings.configuration.IGNORECASE = ignoreCase ? 1 : 0;
        std::mt19937 random(seed);
        files = generated(random, 60);
        referenced = generated(random, 40);
        ignored = generated(random, 80);
        for (const std::string& file : files) {
            sizes.push_back(random() % 2 == 0 ? "000000012" : "000000120");
            lists.FileList.Append(file);
            lists.FileSizes.Append(file + sizes.back());
        }
        for (const std::string& line : referenced) {
            references.append(line, "from " + line);
        }
        for (const std::string& line : ignored) {
            lists.IgnoredReferences.Append(line);
            lists.IgnoredReferencesFrom.Append("from " + line);
        }
    }
    void expectParallel(const ResultList& list, const ResultList& from) const {
        ASSERT_EQ(list.Count(), from.Count());
        for (int i = 0; i < list.Count(); ++i) {
            EXPECT_EQ("from " + std::string(list.Line(i)), from.Line(i));
        }
    }
};

TEST(Passes, AgreeWithThePlainWalks) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        const bool ignoreCase = seed % 2 == 1;
        SCOPED_TRACE(seed);
        Generated bench(seed, ignoreCase);
        Lines invalid;
        Lines unused;
        Lines duplicates;
        for (const std::string& line : bench.referenced) {
            if (!holds(bench.files, line, ignoreCase)) {
                invalid.push_back(line);
            }
        }
        for (std::size_t i = 0; i < bench.files.size(); ++i) {
            if (!holds(bench.referenced, bench.files[i], ignoreCase)) {
                unused.push_back(bench.files[i]);
            }
            for (std::size_t j = i + 1; j < bench.files.size(); ++j) {
                if (upperCase(PathParser(bench.files[i]).FileName()) ==
                        upperCase(PathParser(bench.files[j]).FileName()) &&
                    bench.sizes[i] == bench.sizes[j]) {
                    duplicates.push_back(bench.files[i]);
                    break;
                }
            }
        }
        bench.referencePasses.checkReferences();
        EXPECT_EQ(linesOf(bench.lists.InvalidReferences), invalid);
        bench.filePasses.checkUnusedFiles();
        EXPECT_EQ(linesOf(bench.lists.UnusedList), unused);
        bench.filePasses.checkDuplicateFiles();
        EXPECT_EQ(linesOf(bench.lists.DuplicateList), duplicates);
        bench.messages.normals.clear();
        bench.referencePasses.checkDuplicateInvalidReferences();
        const Lines survivors = withoutEarlierDuplicates(invalid);
        EXPECT_EQ(linesOf(bench.lists.InvalidReferences), survivors);
        EXPECT_EQ(bench.messages.normals.size(), survivors.size());
        bench.referencePasses.checkDuplicateIgnoredReferences();
        EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), withoutEarlierDuplicates(bench.ignored));
        bench.expectParallel(bench.lists.InvalidReferences, bench.lists.InvalidReferencesFrom);
        bench.expectParallel(bench.lists.IgnoredReferences, bench.lists.IgnoredReferencesFrom);
    }
}

TEST(Passes, TopicAndCgiReferencesAreRemovedToTheEnd) {
    Generated bench(7, false);
    bench.state.abort = true;
    IgnoredPasses passes(bench.context);
    passes.removeTopicReferences();
    passes.removeCGIReferences();
    Lines left;
    for (const std::string& line : bench.ignored) {
        const bool cgi =
            line.find(".cgi") != std::string::npos || line.find(".CGI") != std::string::npos;
        if (line.front() != '#' && !cgi) {
            left.push_back(line);
        }
    }
    EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), left);
    EXPECT_EQ(bench.messages.debugs.front(), "Removed Topic Reference :#t");
    bench.expectParallel(bench.lists.IgnoredReferences, bench.lists.IgnoredReferencesFrom);
}

TEST(Passes, StopKeepsWhatWasFound) {
    Generated bench(3, false);
    int steps = 0;
    bench.events.hook = [&] { bench.state.abort = ++steps == 5; };
    bench.filePasses.checkUnusedFiles();
    EXPECT_EQ(steps, 5);
    EXPECT_LE(bench.lists.UnusedList.Count(), 4);
    bench.referencePasses.checkReferences();
    EXPECT_EQ(bench.lists.InvalidReferences.Count(), 0);
}

TEST(Passes, UrlsThatAnswerBecomeReferences) {
    RunBench bench;
    ListLimit limit(bench.messages, bench.state);
    FiledReferences references(bench.lists);
    LineIndex files(bench.lists.FileList, NameComparison::Exact);
    const Lines ignored = {"http://a/", "mailto:x",     "http://a/missing",
                           "HTTP://b/", "http://dead/", "see http:c"};
    for (const std::string& line : ignored) {
        bench.lists.IgnoredReferences.Append(line);
        bench.lists.IgnoredReferencesFrom.Append("p");
    }
    ReferencePasses(bench.context, limit, references, files).checkURLs();
    EXPECT_EQ(linesOf(bench.lists.ReferenceList), (Lines{"http://a/", "HTTP://b/", "see http:c"}));
    EXPECT_EQ(linesOf(bench.lists.IgnoredReferences),
              (Lines{"mailto:x", "http://a/missing", "http://dead/"}));
    EXPECT_EQ(bench.messages.normals,
              (Lines{"Check For http://a/ Passed", "Check For http://a/missing Failed",
                     "Check For HTTP://b/ Passed", "Check For see http:c Passed"}));
    EXPECT_EQ(bench.web.expected.size(), 5U);
}

TEST(Passes, StatisticsSumFromTheTopOfTheList) {
    RunBench bench;
    ListLimit limit(bench.messages, bench.state);
    for (const char* line : {"/a000000100", "/b000000020", "/c000000003"}) {
        bench.lists.FileSizes.Append(line);
    }
    bench.lists.UnusedList.Append("/b");
    bench.lists.UnusedList.Append("/c");
    FilePasses(bench.context, limit).computeStatistics();
    EXPECT_EQ(bench.state.hostByteTotal, 123);
    EXPECT_EQ(bench.state.unusedByteTotal, 120);
    EXPECT_TRUE(bench.state.statisticsComplete);
}

TEST(HtmlFile, IsToldByAnExtensionAnywhere) {
    RunBench bench;
    const ResultList& extensions = bench.settings.configuration.lstCheckHTML;
    for (const char* page :
         {"index.html", "/a/INDEX.HTM", "archive.htmx", "page.htm.bak", "/x.htm/y.gif"}) {
        EXPECT_TRUE(IsHTMLFile(page, extensions)) << page;
    }
    for (const char* other : {"index.php", "html", "ahtml", ""}) {
        EXPECT_FALSE(IsHTMLFile(other, extensions)) << other;
    }
    EXPECT_FALSE(IsHTMLFile("index.html", ResultList()));
}

} // namespace
} // namespace quillmark::test

#include "base/UpperCase.h"
#include "classic/verify/FilePasses.h"
#include "classic/verify/ReferencePasses.h"
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

bool holds(const Lines& lines, const std::string& text, bool ignoreCase) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
        return ignoreCase ? upperCase(line) == upperCase(text) : line == text;
    });
}

/// The lines whose key comes again further on, or those whose key does not.
Lines chosen(const Lines& lines, const Lines& keys, bool again) {
    Lines result;
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        if (again == (std::find(key + 1, keys.end(), *key) != keys.end())) {
            result.push_back(lines[static_cast<std::size_t>(key - keys.begin())]);
        }
    }
    return result;
}

/// Where each reference comes from.
Lines pagesOf(const Lines& references) {
    Lines pages;
    for (const std::string& reference : references) {
        pages.push_back("from " + reference);
    }
    return pages;
}

struct Generated : RunBench {
    std::mt19937 random;
    bool ignoreCase;
    Lines files = generated(random, 60);
    Lines referenced = generated(random, 40);
    Lines ignored = generated(random, 80);
    Lines namesAndSizes;
    FiledReferences references{lists};
    LineIndex fileIndex{lists.FileList,
                        ignoreCase ? NameComparison::IgnoreCase : NameComparison::Exact};
    ReferencePasses referencePasses{context, limit, references, fileIndex};
    FilePasses filePasses{context, limit, fileIndex};

    explicit Generated(unsigned seed) : random(seed), ignoreCase(seed % 2 == 1) {
        settings.configuration.IGNORECASE = ignoreCase ? 1 : 0;
        for (const std::string& file : files) {
            const std::string size = random() % 2 == 0 ? "000000012" : "000000120";
            namesAndSizes.push_back(upperCase(PathParser(file).FileName()) + size);
            lists.FileList.Append(file);
            lists.FileSizes.Append(file + size);
        }
        lists.ReferenceList = listOf(referenced);
        lists.ReferenceListFrom = listOf(pagesOf(referenced));
        lists.IgnoredReferences = listOf(ignored);
        lists.IgnoredReferencesFrom = listOf(pagesOf(ignored));
    }
    void expectIgnored(const Lines& left) const {
        EXPECT_EQ(linesOf(lists.IgnoredReferences), left);
        EXPECT_EQ(linesOf(lists.IgnoredReferencesFrom), pagesOf(left));
    }
    Lines without(Lines lines, const Lines& others) const {
        std::erase_if(lines, [&](const auto& line) { return holds(others, line, ignoreCase); });
        return lines;
    }
};

TEST(Passes, AgreeWithThePlainWalks) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        Generated bench(seed);
        const Lines invalid = bench.without(bench.referenced, bench.files);
        const Lines unused = bench.without(bench.files, bench.referenced);
        const Lines duplicates = chosen(bench.files, bench.namesAndSizes, true);
        bench.referencePasses.checkReferences();
        EXPECT_EQ(linesOf(bench.lists.InvalidReferences), invalid);
        bench.filePasses.checkUnusedFiles();
        EXPECT_EQ(linesOf(bench.lists.UnusedList), unused);
        bench.filePasses.checkDuplicateFiles();
        EXPECT_EQ(linesOf(bench.lists.DuplicateList), duplicates);
        bench.messages.normals.clear();
        bench.referencePasses.checkDuplicateInvalidReferences();
        const Lines survivors = chosen(invalid, invalid, false);
        EXPECT_EQ(linesOf(bench.lists.InvalidReferences), survivors);
        EXPECT_EQ(bench.messages.normals.size(), survivors.size());
        bench.referencePasses.checkDuplicateIgnoredReferences();
        bench.expectIgnored(chosen(bench.ignored, bench.ignored, false));
        EXPECT_EQ(linesOf(bench.lists.InvalidReferencesFrom), pagesOf(survivors));
    }
}

TEST(Passes, TopicAndCgiReferencesAreRemovedToTheEnd) {
    Generated bench(8);
    bench.state.abort = true;
    bench.referencePasses.removeTopicReferences();
    bench.referencePasses.removeCGIReferences();
    Lines left = bench.ignored;
    std::erase_if(left, [](const std::string& line) {
        return line.starts_with("#") || line.find(".cgi") != std::string::npos ||
               line.find(".CGI") != std::string::npos;
    });
    bench.expectIgnored(left);
    EXPECT_EQ(bench.messages.debugs.front(), "Removed Topic Reference :#t");
}

TEST(Passes, AnnounceWebReferencesInTheOrderOfTheirFetching) {
    RunBench bench;
    FiledReferences references{bench.lists};
    LineIndex files{bench.lists.FileList, NameComparison::Exact};
    bench.lists.IgnoredReferences =
        listOf({"http://b/", "#top", "http://a/", "mailto:x", "http://b/"});
    bench.lists.IgnoredReferencesFrom = listOf(Lines(5, "page"));
    ReferencePasses{bench.context, bench.limit, references, files}.checkURLs();
    EXPECT_EQ(bench.web.expected, Lines({"http://b/", "http://a/", "http://b/"}));
    EXPECT_EQ(linesOf(bench.lists.IgnoredReferences), Lines({"#top", "mailto:x"}));
    EXPECT_EQ(linesOf(bench.lists.ReferenceList), bench.web.expected);
}

TEST(Passes, StopKeepsWhatWasFound) {
    Generated bench(4);
    int steps = 0;
    bench.events.hook = [&] { bench.state.abort = ++steps == 5; };
    bench.filePasses.checkUnusedFiles();
    EXPECT_EQ(steps, 5);
    EXPECT_LE(bench.lists.UnusedList.Count(), 4);
    bench.referencePasses.checkReferences();
    EXPECT_EQ(bench.lists.InvalidReferences.Count(), 0);
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

// A whole check of a small generated site, by both rules: pages, their references, the settings
// that decide.

#include "fuzz/Fuzz.h"
#include "support/RunFakes.h"

#include <array>
#include <set>

namespace quillmark::test {
namespace {

constexpr std::array Names = {"index.html",  "a.html",     "b.htm",    "images/a.gif",
                              "deep/c.html", "deep/a.gif", "menu.map", "A.HTML"};

std::int16_t flag(FuzzedDataProvider& data) {
    return data.ConsumeBool() ? 1 : 0;
}

void choose(FuzzedDataProvider& data, Settings& settings) {
    settings.configuration.IGNORECASE = flag(data);
    settings.configuration.IGNORE_VALUE = flag(data);
    settings.configuration.DEBUG = flag(data);
    Profile& profile = settings.profile;
    profile.RULES = data.ConsumeBool() ? Rules::Web : Rules::Classic;
    profile.CHECK_DUPES = flag(data);
    profile.IGNORE_TOPICS = flag(data);
    profile.IGNORE_CGI = flag(data);
    profile.UPPER_LEVELS = flag(data);
    profile.ROOT_LEVEL = flag(data);
    profile.GET_STATS = flag(data);
    profile.MAX_LEVELS = data.ConsumeIntegralInRange<std::int16_t>(0, 9);
    profile.HOST_ALIAS = data.ConsumeRandomLengthString(8);
}

void writeSite(FuzzedDataProvider& data, const TempFolder& site) {
    for (const char* name : Names) {
        if (data.ConsumeBool()) {
            site.write(name, data.ConsumeRandomLengthString(2000));
        }
    }
    site.write(Names.front(), data.ConsumeRemainingBytesAsString());
}

bool holds(const ResultList& list, std::string_view line) {
    const Lines lines = linesOf(list);
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

/// What is true of every check that came to its end.
void requireConsistent(const ResultLists& lists, const RunState& state) {
    require(lists.ReferenceList.Count() == lists.ReferenceListFrom.Count());
    require(lists.InvalidReferences.Count() == lists.InvalidReferencesFrom.Count());
    require(lists.IgnoredReferences.Count() == lists.IgnoredReferencesFrom.Count());
    require(lists.FileList.Count() == lists.FileSizes.Count());
    require(state.reading.bytesUnread <= state.reading.bytes);
    require(state.reading.pagesCutShort <= lists.GetFileList.Count());
    for (const std::string& unused : linesOf(lists.UnusedList)) {
        require(holds(lists.FileList, unused) && !holds(lists.ReferenceList, unused));
    }
    for (const std::string& invalid : linesOf(lists.InvalidReferences)) {
        require(!holds(lists.FileList, invalid));
    }
}

/// The same for the web rules.
void requireConsistent(const SiteResults& results) {
    std::set<std::string_view> targets;
    for (const SiteReference& reference : results.references) {
        targets.insert(results.path(reference.target));
    }
    std::uint32_t first = 0;
    for (const SitePage& page : results.pages) {
        require(!results.path(page.target).empty());
        require(page.firstReference >= first && page.firstReference <= results.references.size());
        first = page.firstReference;
    }
    for (const std::uint32_t unused : results.unused) {
        require(!targets.contains(results.files.at(unused).path));
    }
    for (const Finding& finding : results.findings) {
        require(finding.at.page < results.pages.size());
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    RunBench bench;
    const bool local = data.ConsumeBool();
    choose(data, bench.settings);
    bench.run.setWebOptions({.threads = 1});
    writeSite(data, bench.site);
    const RunOutcome outcome = local ? bench.runLocal() : bench.runRemote();
    require(local ? outcome == RunOutcome::Finished : outcome != RunOutcome::Aborted);
    if (outcome == RunOutcome::Finished) {
        requireConsistent(bench.lists, bench.state);
        requireConsistent(bench.siteResults);
    }
}

} // namespace quillmark::test

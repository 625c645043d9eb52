#include "report/CheckReport.h"

#include "base/Paths.h"
#include "report/ListResults.h"

namespace quillmark {

namespace {

std::size_t sizeOf(const ResultList& list) {
    return static_cast<std::size_t>(list.Count());
}

std::unique_ptr<SiteResults> resultsOfCheck(const ResultLists& lists, const std::string& start,
                                            const RunState& run, const Settings& settings) {
    auto results = std::make_unique<SiteResults>(
        resultsOfLists(lists, start, settings.configuration.IGNORECASE == 1));
    results->duplicatesKnown =
        settings.profile.CHECK_DUPES != 0 && run.duplicatesPass == PassProgress::Done;
    return results;
}

} // namespace

std::string CheckReport::shownPath(std::string_view fullPath) const {
    const std::string_view path = site().fromTop(fullPath);
    return path.size() == fullPath.size() ? std::string(path) : pathPrefix + std::string(path);
}

CheckReport makeReport(RunOutcome outcome, const SiteResults& site, const ResultLists& lists,
                       const RunState& run, const Settings& settings) {
    CheckReport report;
    report.outcome = outcome;
    report.run = &run;
    report.settings = &settings;
    report.messages = &lists.Message;
    report.start = ToForwardSlashes(settings.profile.START_PATH);
    if (site.filled) {
        report.results = &site;
        report.counts = {site.pages.size(), site.references.size(), site.files.size(),
                         site.folders.size() + 1};
    } else {
        report.ofLists = resultsOfCheck(lists, report.start, run, settings);
        report.results = report.ofLists.get();
        // The top itself is not in the list of folders.
        report.counts = {sizeOf(lists.GetFileList), sizeOf(lists.ReferenceList),
                         sizeOf(lists.FileList), sizeOf(lists.DirectoryList) + 1};
    }
    report.totals = report.site().totals;
    return report;
}

std::string messageOf(const Finding& finding) {
    std::string message = explanationOf(finding);
    if (!finding.suggestion.empty()) {
        message.append(" (did you mean ").append(finding.suggestion).append("?)");
    }
    return message;
}

std::string_view nameOf(RunOutcome outcome) {
    switch (outcome) {
    case RunOutcome::Finished:
        return "finished";
    case RunOutcome::Aborted:
        return "aborted";
    case RunOutcome::Failed:
        return "failed";
    }
    return "failed";
}

} // namespace quillmark

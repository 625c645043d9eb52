#pragma once

#include "findings/SiteResults.h"
#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// How much a check looked at.
struct ReportCounts {
    std::size_t pages = 0; ///< That were read.
    std::size_t references = 0;
    std::size_t files = 0;
    std::size_t folders = 0; ///< Including the top.
};

/// What every format is written from: the results of one check, by either set of rules. It refers
/// to the results, lists, run and settings that it was made from, which must outlive it.
struct CheckReport {
    const SiteResults& site() const { return *results; }
    bool byWebRules() const { return settings->profile.RULES == Rules::Web; }
    /// Whether the baseline has finding i (0-based). Such a finding counts in knownCount only.
    bool isKnown(std::size_t i) const { return hasBaseline && known[i]; }
    /// Errors and notes that no baseline has.
    std::size_t errors() const { return totalErrors(totals); }
    std::size_t notes() const { return site().findings.size() - knownCount - errors(); }
    /// A full path as the report shows it: pathPrefix, then the path from the top of the site. A
    /// path outside the site stays as it is.
    std::string shownPath(std::string_view fullPath) const;
    /// The page of a finding, as the report shows it.
    std::string shownPage(const Place& at) const { return shownPath(site().pagePath(at.page)); }

    RunOutcome outcome = RunOutcome::Finished;
    const RunState* run = nullptr;
    const Settings* settings = nullptr;
    const CappedList* messages = nullptr; ///< The newest messages of the run.
    /// What was found. After a check with the classic rules the findings are the invalid
    /// references: errors of the kind Missing at line 0, which means that the line is not known.
    const SiteResults* results = nullptr;
    std::string start; ///< The start page, full path in "/" form.
    ReportCounts counts;
    std::string pathPrefix; ///< The folder of the site within the user's repository, ends in "/".
    KindTotals totals;      ///< Of the findings that no baseline has.
    bool hasBaseline = false;
    std::vector<bool> known; ///< By finding, with a baseline.
    std::size_t knownCount = 0;
    std::size_t mendedCount = 0; ///< In the baseline, but no longer found.
    bool color = false;          ///< It is shown on a terminal with colours.

    std::unique_ptr<SiteResults>
        ofLists; ///< Owns the results of the classic rules; null with the web rules.
};

/// The report of the run that filled `site` (web rules) or `lists` (classic rules). Those must
/// outlive it.
CheckReport makeReport(RunOutcome outcome, const SiteResults& site, const ResultLists& lists,
                       const RunState& run, const Settings& settings);

/// What is wrong, as a sentence without its full stop: "there is no such file (did you mean
/// a.html?)". The bytes of the suggestion are as the page has them.
std::string messageOf(const Finding& finding);

/// "finished", "aborted", "failed".
std::string_view nameOf(RunOutcome outcome);

} // namespace quillmark

#pragma once

#include "findings/ListProjection.h"
#include "support/RunFakes.h"

#include <map>
#include <string>

namespace quillmark::test {

/// A check with the web rules over a temporary site.
struct WebBench : RunBench {
    using Files = std::map<std::string, std::string>;

    explicit WebBench(const Files& files) {
        settings.configuration.IGNORECASE = 0;
        settings.profile.RULES = Rules::Web;
        for (const auto& file : files) {
            site.write(file.first, file.second);
        }
    }

    RunOutcome check(const std::string& startFile = "index.html") {
        run.setWebOptions(options);
        const RunOutcome outcome = runLocal(startFile);
        projectLists(results, lists);
        return outcome;
    }

    /// "missing 1:10 a.html -> b.html", with "note" in front of notes, in their order.
    std::string findings() const {
        std::string text;
        for (const Finding& finding : results.findings) {
            text += text.empty() ? "" : "; ";
            text += finding.level == FindingLevel::Note ? "note " : "";
            text += std::string(nameOf(finding.kind)) + " " + std::to_string(finding.at.line) +
                    ":" + std::to_string(finding.at.column) + " " + std::string(finding.reference);
            text += finding.suggestion.empty() ? "" : " -> " + std::string(finding.suggestion);
        }
        return text;
    }
    /// "another site: https://a.example/", in their order.
    std::string ignored() const {
        std::string text;
        for (const IgnoredReference& reference : results.ignored) {
            text += text.empty() ? "" : "; ";
            text += std::string(nameOf(reference.reason)) + ": " + std::string(reference.reference);
        }
        return text;
    }

    web::WebOptions options;
    SiteResults& results = siteResults;
};

} // namespace quillmark::test

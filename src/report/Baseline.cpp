#include "report/Baseline.h"

#include "base/Failure.h"
#include "report/JsonText.h"

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using Json = nlohmann::json;

constexpr int FileVersion = 1;

/// The texts as the file has them: bytes that are not UTF-8 would never be found in it again.
Baseline::Key keyOf(const SiteResults& site, const Finding& finding) {
    return {soundUtf8(site.fromTop(site.pagePath(finding.at.page))), soundUtf8(finding.reference),
            std::string(nameOf(finding.kind))};
}

Baseline readFindings(const Json& file) {
    if (file.at("version") != FileVersion) {
        throw invalidValue("its version is not " + std::to_string(FileVersion));
    }
    Baseline baseline;
    for (const Json& finding : file.at("findings")) {
        const Baseline::Key key{finding.at("page"), finding.at("reference"), finding.at("kind")};
        // A file that was edited or merged may have a finding twice.
        baseline.counts[key] += finding.at("count").get_ref<const Json::number_unsigned_t&>();
    }
    return baseline;
}

} // namespace

Baseline parseBaseline(std::string_view json) {
    try {
        return readFindings(Json::parse(json));
    } catch (const Json::parse_error& error) {
        throw invalidValue("it is no JSON from byte " + std::to_string(error.byte) + " on");
    } catch (const Json::exception&) {
        throw invalidValue("it lacks values that --write-baseline writes");
    }
}

Baseline baselineOf(const SiteResults& site) {
    Baseline baseline;
    for (const Finding& finding : site.findings) {
        ++baseline.counts[keyOf(site, finding)];
    }
    return baseline;
}

std::string baselineText(const Baseline& baseline) {
    std::string text = "{\n  \"version\": " + std::to_string(FileVersion) + ",\n  \"findings\": [";
    std::string_view separator = "\n    ";
    for (const auto& known : baseline.counts) {
        text.append(separator).append("{\"page\": ").append(jsonText(known.first.page));
        text.append(", \"reference\": ").append(jsonText(known.first.reference));
        text.append(", \"kind\": ").append(jsonText(known.first.kind));
        text.append(", \"count\": ").append(std::to_string(known.second)).append("}");
        separator = ",\n    ";
    }
    return text + (baseline.counts.empty() ? "]\n}\n" : "\n  ]\n}\n");
}

void applyBaseline(const Baseline& baseline, CheckReport& report) {
    std::map<Baseline::Key, std::size_t> left = baseline.counts;
    const std::vector<Finding>& findings = report.site().findings;
    report.hasBaseline = true;
    report.known.assign(findings.size(), false);
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const auto found = left.find(keyOf(report.site(), findings[i]));
        if (found != left.end() && found->second > 0) {
            --found->second;
            report.known[i] = true;
            ++report.knownCount;
        }
    }
    // In a run that ended early, a finding that is missing may only not have been reached.
    if (report.outcome == RunOutcome::Finished) {
        for (const auto& mended : left) {
            report.mendedCount += mended.second;
        }
    }
    report.totals = countFindings(findings, report.known);
}

} // namespace quillmark

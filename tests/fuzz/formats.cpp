// Findings of pages and references with any bytes: every format stays what it is, and a baseline
// knows again what it was written from.

#include "report/formats/Formats.h"
#include "base/Failure.h"
#include "fuzz/Fuzz.h"
#include "report/Baseline.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace quillmark::test {
namespace {

/// A page for each piece between NULs, which refers to itself.
void fill(SiteResults& site, std::string_view bytes) {
    site.top = "/site/";
    while (!bytes.empty() && site.pages.size() < 50) {
        const std::string_view piece = bytes.substr(0, bytes.find('\0'));
        bytes.remove_prefix(std::min(bytes.size(), piece.size() + 1));
        SiteFile file;
        file.path = site.texts.keep("/site/" + std::string(piece));
        Finding finding;
        finding.kind = static_cast<FindingKind>(piece.size() % FindingKinds);
        finding.level = usualLevelOf(finding.kind);
        finding.at.page = static_cast<std::uint32_t>(site.pages.size());
        finding.at.line = static_cast<std::uint32_t>(piece.size() % 3);
        finding.reference = finding.suggestion = piece;
        finding.target = file.path;
        site.pages.push_back({static_cast<std::uint32_t>(site.files.size()), 0});
        site.files.push_back(file);
        site.findings.push_back(finding);
    }
    site.totals = countFindings(site.findings);
    site.filled = true;
}

std::size_t count(std::string_view text, std::string_view part) {
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size())) {
        ++found;
    }
    return found;
}

void check(std::string_view format, const std::string& text, std::size_t findings) {
    require(text.find('\x1B') == std::string::npos && text.find('\0') == std::string::npos);
    require(text.find("\xE2\x80\xAE") == std::string::npos);
    if (format == "json" || format == "sarif" || format == "gitlab") {
        require(nlohmann::json::accept(text));
    } else if (format == "github") {
        require(count("\n" + text, "\n::error file=") + count("\n" + text, "\n::notice file=") ==
                findings);
        require(count(text, "\n") == findings);
    } else if (format == "junit") {
        require(count(text, "<testcase ") == findings && count(text, "<!") == 0);
    } else if (format == "csv") {
        require(count(text, "\r\n") == findings + 1);
        for (const std::string formula : {"=", "+", "-", "@"}) {
            // In the middle of a cell, a quote is doubled: only a cell's own begins like this.
            require(count(text, ",\"" + formula) == 0);
        }
    } else if (format == "markdown") {
        require(text.size() <= 65536);
    }
}

} // namespace

void fuzz(FuzzedDataProvider& data) {
    const std::string bytes = data.ConsumeRemainingBytesAsString();
    SiteResults site;
    fill(site, bytes);
    const ResultLists lists;
    const RunState run;
    Settings settings;
    settings.profile.RULES = Rules::Web;
    CheckReport report = makeReport(RunOutcome::Finished, site, lists, run, settings);
    for (const Format& format : formats()) {
        std::ostringstream out;
        format.write(out, report);
        check(format.name, out.str(), site.findings.size());
    }
    applyBaseline(parseBaseline(baselineText(baselineOf(site))), report);
    require(report.knownCount == site.findings.size() && report.mendedCount == 0);
    try {
        parseBaseline(bytes);
    } catch (const Failure&) {
    }
}

} // namespace quillmark::test

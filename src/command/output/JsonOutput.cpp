#include "command/output/Results.h"

#include "command/options/NamedLists.h"
#include "report/CheckReport.h"
#include "report/JsonText.h"

#include <cmath>
#include <string>
#include <string_view>

namespace quillmark {

namespace {

std::string statistics(const RunState& run) {
    if (!run.statisticsComplete) {
        return "null";
    }
    return "{\"hostBytes\": " + std::to_string(std::llround(run.hostByteTotal)) +
           ", \"unusedBytes\": " + std::to_string(std::llround(run.unusedByteTotal)) + "}";
}

/// Writes line by line: the lists of a check are too large to hold twice in memory.
template <typename List>
void writeList(std::ostream& out, std::string_view name, const List& list) {
    out << "    " << jsonText(name) << ": [";
    for (int i = 0; i < list.Count(); ++i) {
        out << (i == 0 ? "\n" : ",\n") << "      " << jsonText(list.Line(i));
    }
    out << (list.Count() == 0 ? "]" : "\n    ]");
}

void writePlace(std::ostream& out, const SiteResults& results, const Place& at) {
    out << "\"page\": " << jsonText(results.pagePath(at.page)) << ", \"line\": " << at.line
        << ", \"column\": " << at.column << ", \"element\": " << jsonText(at.element)
        << ", \"attribute\": " << jsonText(at.attribute);
}

/// Writes each item as it comes, on a line of its own: there may be a million.
template <typename Items, typename Write>
void writeArray(std::ostream& out, std::string_view name, const Items& items, Write write) {
    out << "  \"" << name << "\": [";
    bool first = true;
    for (const auto& item : items) {
        out << (first ? "\n    " : ",\n    ");
        write(item);
        first = false;
    }
    out << (first ? "],\n" : "\n  ],\n");
}

/// Writes the members that only a check with the web rules has, each followed by a comma: "rules",
/// "top", "totals", "findings", "addresses", "ignored" and "duplicates".
void writeFindings(std::ostream& out, const SiteResults& results) {
    out << "  \"rules\": \"web\",\n  \"top\": " << jsonText(results.top)
        << ",\n  \"totals\": " << jsonTotals(results.totals) << ",\n";
    writeArray(out, "findings", results.findings, [&](const Finding& finding) {
        out << "{\"kind\": " << jsonText(nameOf(finding.kind))
            << ", \"level\": " << jsonText(nameOf(finding.level)) << ", ";
        writePlace(out, results, finding.at);
        out << ", \"reference\": " << jsonText(finding.reference)
            << ", \"target\": " << jsonTextOrNull(finding.target)
            << ", \"suggestion\": " << jsonTextOrNull(finding.suggestion)
            << ", \"status\": " << jsonStatus(finding.status) << "}";
    });
    writeArray(out, "addresses", results.addresses,
               [&](const AskedAddress& asked) { out << jsonAddress(asked); });
    writeArray(out, "ignored", results.ignored, [&](const IgnoredReference& ignored) {
        out << "{\"reason\": " << jsonText(nameOf(ignored.reason)) << ", ";
        writePlace(out, results, ignored.at);
        out << ", \"reference\": " << jsonText(ignored.reference) << "}";
    });
    writeArray(out, "duplicates", results.duplicates, [&](const auto& group) {
        out << "[";
        for (std::size_t i = 0; i < group.size(); ++i) {
            out << (i == 0 ? "" : ", ") << jsonText(results.files[group[i]].path);
        }
        out << "]";
    });
}

} // namespace

void writeJson(std::ostream& out, RunOutcome outcome, const Workspace& workspace) {
    const RunState& run = workspace.run;
    out << "{\n  \"outcome\": " << jsonText(nameOf(outcome))
        << ",\n  \"mode\": " << jsonText(run.localMode ? "local" : "remote")
        << ",\n  \"baseUrl\": " << jsonText(run.baseUrl)
        << ",\n  \"statistics\": " << statistics(run) << ",\n";
    if (workspace.site.filled) {
        writeFindings(out, workspace.site);
    }
    out << "  \"lists\": {\n";
    for (const NamedList& list : namedLists()) {
        writeList(out, list.name, workspace.lists.*list.lines);
        out << ",\n";
    }
    writeList(out, "Message", workspace.lists.Message);
    out << "\n  }\n}\n";
}

} // namespace quillmark

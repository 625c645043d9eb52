#include "command/output/FindingsJson.h"

#include "report/JsonText.h"

#include <string>
#include <string_view>

namespace quillmark {

namespace {

void writePlace(std::ostream& out, const SiteResults& results, const Place& at) {
    out << "\"page\": " << jsonText(results.pagePath(at.page)) << ", \"line\": " << at.line
        << ", \"column\": " << at.column << ", \"element\": " << jsonText(at.element)
        << ", \"attribute\": " << jsonText(at.attribute);
}

/// Each item on a line of its own, written as it comes: there may be a million.
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

void writeTotals(std::ostream& out, const SiteResults& results) {
    out << "  \"totals\": {";
    for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
        const KindTotal& total = results.totals.at(kind);
        out << (kind == 0 ? "\n    " : ",\n    ")
            << jsonText(nameOf(static_cast<FindingKind>(kind))) << ": {\"errors\": " << total.errors
            << ", \"notes\": " << total.notes << ", \"targets\": " << total.targets << "}";
    }
    out << "\n  },\n";
}

} // namespace

void writeFindings(std::ostream& out, const SiteResults& results) {
    out << "  \"rules\": \"web\",\n  \"top\": " << jsonText(results.top) << ",\n";
    writeTotals(out, results);
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

} // namespace quillmark

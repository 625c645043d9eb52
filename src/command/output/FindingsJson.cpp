#include "command/output/FindingsJson.h"

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using Json = nlohmann::json;

/// JSON lets U+007F to U+009F stand as they are; on a terminal they would steer it.
void escapeUpperControls(std::string& json) {
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto byte = static_cast<unsigned char>(json[i]);
        const unsigned next = i + 1 < json.size() ? static_cast<unsigned char>(json[i + 1]) : 0;
        if (byte == 0x7F) {
            json.replace(i, 1, "\\u007f");
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            const char* const tens = next < 0x90 ? "8" : "9";
            json.replace(i, 2, std::string("\\u00") + tens + "0123456789abcdef"[next % 16]);
        }
    }
}

std::string textOrNull(std::string_view bytes) {
    return bytes.empty() ? "null" : jsonText(bytes);
}

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

std::string jsonText(std::string_view bytes) {
    std::string json = Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace);
    escapeUpperControls(json);
    return json;
}

void writeFindings(std::ostream& out, const SiteResults& results) {
    out << "  \"rules\": \"web\",\n  \"top\": " << jsonText(results.top) << ",\n";
    writeTotals(out, results);
    writeArray(out, "findings", results.findings, [&](const Finding& finding) {
        out << "{\"kind\": " << jsonText(nameOf(finding.kind))
            << ", \"level\": " << jsonText(nameOf(finding.level)) << ", ";
        writePlace(out, results, finding.at);
        out << ", \"reference\": " << jsonText(finding.reference)
            << ", \"target\": " << textOrNull(finding.target)
            << ", \"suggestion\": " << textOrNull(finding.suggestion) << "}";
    });
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

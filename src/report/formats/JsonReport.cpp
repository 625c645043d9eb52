#include "base/Version.h"
#include "report/JsonText.h"
#include "report/formats/Formats.h"

namespace quillmark {

namespace {

constexpr int FormatVersion = 1;

/// Writes each item as it comes, on a line of its own: there may be a million.
template <typename Items, typename Write>
void writeArray(std::ostream& out, std::string_view name, const Items& items, Write write) {
    out << ",\n  \"" << name << "\": [";
    for (std::size_t i = 0; i < items.size(); ++i) {
        out << (i == 0 ? "\n    " : ",\n    ");
        write(items[i], i);
    }
    out << (items.empty() ? "]" : "\n  ]");
}

class JsonReport {
public:
    JsonReport(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), site_(report.site()) {}

    void write() {
        writeHead();
        writeArray(out_, "findings", site_.findings,
                   [this](const Finding& finding, std::size_t i) { writeFinding(finding, i); });
        writeArray(out_, "addresses", site_.addresses,
                   [this](const AskedAddress& asked, std::size_t) { out_ << jsonAddress(asked); });
        writeArray(out_, "ignored", site_.ignored,
                   [this](const IgnoredReference& ignored, std::size_t) { writeIgnored(ignored); });
        writeArray(out_, "unused", site_.unused,
                   [this](std::uint32_t file, std::size_t) { writeFile(site_.files[file]); });
        writeArray(out_, "duplicates", site_.duplicates,
                   [this](const auto& group, std::size_t) { writeGroup(group); });
        out_ << "\n}\n";
    }

private:
    void writeHead() {
        const ReportCounts& counts = report_.counts;
        out_ << "{\n  \"version\": " << FormatVersion
             << ",\n  \"tool\": " << jsonText("Quillmark " + std::string(ApplicationVersion))
             << ",\n  \"outcome\": " << jsonText(nameOf(report_.outcome))
             << ",\n  \"rules\": " << jsonText(nameOf(report_.settings->profile.RULES))
             << ",\n  \"start\": " << jsonText(report_.shownPath(report_.start))
             << ",\n  \"counts\": {\"pages\": " << counts.pages
             << ", \"references\": " << counts.references << ", \"files\": " << counts.files
             << ", \"folders\": " << counts.folders << "}"
             << ",\n  \"summary\": {\"errors\": " << report_.errors()
             << ", \"notes\": " << report_.notes() << ", \"known\": " << report_.knownCount
             << ", \"mended\": " << report_.mendedCount << "}"
             << ",\n  \"kinds\": " << jsonTotals(report_.totals);
    }

    void writePlace(const Place& at) {
        out_ << "\"page\": " << jsonText(report_.shownPage(at));
        if (at.line > 0) {
            out_ << ", \"line\": " << at.line << ", \"column\": " << at.column
                 << ", \"element\": " << jsonTextOrNull(at.element)
                 << ", \"attribute\": " << jsonTextOrNull(at.attribute);
        }
    }

    void writeFinding(const Finding& finding, std::size_t i) {
        out_ << "{\"kind\": " << jsonText(nameOf(finding.kind))
             << ", \"level\": " << jsonText(nameOf(finding.level)) << ", ";
        writePlace(finding.at);
        out_ << ", \"reference\": " << jsonText(finding.reference)
             << ", \"target\": " << jsonTextOrNull(report_.shownPath(finding.target))
             << ", \"explanation\": " << jsonText(explanationOf(finding))
             << ", \"status\": " << jsonStatus(finding.status)
             << ", \"suggestion\": " << jsonTextOrNull(finding.suggestion)
             << ", \"known\": " << (report_.isKnown(i) ? "true" : "false") << "}";
    }

    void writeIgnored(const IgnoredReference& ignored) {
        out_ << "{\"reason\": " << jsonText(nameOf(ignored.reason)) << ", ";
        writePlace(ignored.at);
        out_ << ", \"reference\": " << jsonText(ignored.reference) << "}";
    }

    void writeFile(const SiteFile& file) {
        out_ << "{\"path\": " << jsonText(report_.shownPath(file.path))
             << ", \"size\": " << file.size << "}";
    }

    void writeGroup(const std::vector<std::uint32_t>& group) {
        out_ << "[";
        for (std::size_t i = 0; i < group.size(); ++i) {
            out_ << (i == 0 ? "" : ", ");
            writeFile(site_.files[group[i]]);
        }
        out_ << "]";
    }

    std::ostream& out_;
    const CheckReport& report_;
    const SiteResults& site_;
};

} // namespace

void writeJsonReport(std::ostream& out, const CheckReport& report) {
    JsonReport(out, report).write();
}

} // namespace quillmark

#include "base/Version.h"
#include "report/FindingIdentity.h"
#include "report/JsonText.h"
#include "report/formats/Formats.h"

namespace quillmark {

namespace {

constexpr std::string_view Schema =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";

/// SARIF wants sentences, with a capital letter and a full stop.
std::string sentence(std::string_view explanation) {
    std::string text(explanation);
    if (text[0] >= 'a' && text[0] <= 'z') {
        text[0] = static_cast<char>(text[0] - 'a' + 'A');
    }
    return text + ".";
}

/// A path as a URI reference: what RFC 3986 does not allow in a path is percent-encoded.
std::string uriOf(std::string_view path) {
    static constexpr std::string_view Allowed = "-._~/!$&'()*+,;=@";
    std::string uri;
    for (const char c : path) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || Allowed.find(c) != std::string_view::npos;
        if (plain) {
            uri += c;
            continue;
        }
        const auto code = static_cast<unsigned char>(c);
        uri.append(1, '%').append(1, "0123456789ABCDEF"[code / 16]);
        uri.append(1, "0123456789ABCDEF"[code % 16]);
    }
    return uri;
}

/// A message as SARIF wants it: braces mark arguments and brackets mark links, unless they are
/// doubled or escaped (SARIF 2.1.0, sections 3.11.5 and 3.11.6).
std::string messageText(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '{' || c == '}') {
            result += c;
        } else if (c == '[' || c == ']') {
            result += '\\';
        }
        result += c;
    }
    return jsonText(result);
}

void writeRule(std::ostream& out, FindingKind kind) {
    const std::string about = sentence(explanationOf(kind));
    const std::string help = about + " " + std::string(helpOf(kind));
    out << "{\"id\": " << jsonText(nameOf(kind))
        << ", \"shortDescription\": {\"text\": " << jsonText(about)
        << "}, \"fullDescription\": {\"text\": " << jsonText(help)
        << "}, \"help\": {\"text\": " << jsonText(help)
        << "}, \"defaultConfiguration\": {\"level\": " << jsonText(nameOf(usualLevelOf(kind)))
        << "}}";
}

void writeDriver(std::ostream& out) {
    const std::string version = jsonText(ApplicationVersion);
    out << "      \"tool\": {\"driver\": {\"name\": \"Quillmark\", \"version\": " << version
        << ", \"semanticVersion\": " << version << ", \"rules\": [";
    for (std::size_t kind = 0; kind < FindingKinds; ++kind) {
        out << (kind == 0 ? "\n        " : ",\n        ");
        writeRule(out, static_cast<FindingKind>(kind));
    }
    out << "\n      ]}},\n";
}

void writeResult(std::ostream& out, const CheckReport& report, std::size_t i,
                 const std::string& fingerprint) {
    const Finding& finding = report.site().findings[i];
    const std::string text = std::string(finding.reference) + ": " + messageOf(finding);
    out << "{\"ruleId\": " << jsonText(nameOf(finding.kind))
        << ", \"ruleIndex\": " << static_cast<int>(finding.kind)
        << ", \"level\": " << jsonText(nameOf(finding.level))
        << ", \"message\": {\"text\": " << messageText(text)
        << "}, \"locations\": [{\"physicalLocation\": {\"artifactLocation\": {\"uri\": "
        << jsonText(uriOf(report.shownPage(finding.at))) << "}";
    if (finding.at.line > 0) {
        out << ", \"region\": {\"startLine\": " << finding.at.line
            << ", \"startColumn\": " << finding.at.column << "}";
    }
    out << "}}], \"partialFingerprints\": {\"quillmarkFinding/v1\": " << jsonText(fingerprint)
        << "}";
    if (report.hasBaseline) {
        out << ", \"baselineState\": " << (report.isKnown(i) ? "\"unchanged\"" : "\"new\"");
    }
    out << "}";
}

} // namespace

void writeSarif(std::ostream& out, const CheckReport& report) {
    out << "{\n  \"$schema\": " << jsonText(Schema)
        << ",\n  \"version\": \"2.1.0\",\n  \"runs\": [\n    {\n";
    writeDriver(out);
    out << "      \"invocations\": [{\"executionSuccessful\": "
        << (report.outcome == RunOutcome::Finished ? "true" : "false")
        << "}],\n      \"columnKind\": \"unicodeCodePoints\",\n      \"results\": [";
    const std::vector<std::string> names = fingerprints(report.site());
    for (std::size_t i = 0; i < names.size(); ++i) {
        out << (i == 0 ? "\n        " : ",\n        ");
        writeResult(out, report, i, names[i]);
    }
    out << (names.empty() ? "]" : "\n      ]") << "\n    }\n  ]\n}\n";
}

} // namespace quillmark

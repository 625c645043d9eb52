#include "command/output/Results.h"

#include "command/options/NamedLists.h"
#include "command/output/FindingsJson.h"

#include <cmath>
#include <string>

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

std::string text(std::string_view bytes) {
    std::string json = Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace);
    escapeUpperControls(json);
    return json;
}

std::string_view outcomeName(RunOutcome outcome) {
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

std::string statistics(const RunState& run) {
    if (!run.statisticsComplete) {
        return "null";
    }
    return "{\"hostBytes\": " + std::to_string(std::llround(run.hostByteTotal)) +
           ", \"unusedBytes\": " + std::to_string(std::llround(run.unusedByteTotal)) + "}";
}

/// Writes line by line: a check's lists are too large to stand in memory twice.
template <typename List>
void writeList(std::ostream& out, std::string_view name, const List& list) {
    out << "    " << text(name) << ": [";
    for (int i = 0; i < list.Count(); ++i) {
        out << (i == 0 ? "\n" : ",\n") << "      " << text(list.Line(i));
    }
    out << (list.Count() == 0 ? "]" : "\n    ]");
}

} // namespace

void writeJson(std::ostream& out, RunOutcome outcome, const Workspace& workspace) {
    const RunState& run = workspace.run;
    out << "{\n  \"outcome\": " << text(outcomeName(outcome))
        << ",\n  \"mode\": " << text(run.localMode ? "local" : "remote")
        << ",\n  \"baseUrl\": " << text(run.baseUrl) << ",\n  \"statistics\": " << statistics(run)
        << ",\n";
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

#include "command/output/JsonOutput.h"

#include "command/options/NamedLists.h"

#include <cmath>
#include <string>

#include <nlohmann/json.hpp>

namespace quillmark {

namespace {

using Json = nlohmann::json;

std::string text(std::string_view bytes) {
    return Json(bytes).dump(-1, ' ', false, Json::error_handler_t::replace);
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

/// Written line by line: a run's lists hold far more than should stand in memory twice.
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
        << ",\n  \"lists\": {\n";
    for (const NamedList& list : namedLists()) {
        writeList(out, list.name, workspace.lists.*list.lines);
        out << ",\n";
    }
    writeList(out, "Message", workspace.lists.Message);
    out << "\n  }\n}\n";
}

} // namespace quillmark

#include "command/output/Results.h"

#include "command/options/NamedLists.h"
#include "command/output/FindingsJson.h"
#include "report/CheckReport.h"
#include "report/JsonText.h"

#include <cmath>
#include <string>

namespace quillmark {

namespace {

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
    out << "    " << jsonText(name) << ": [";
    for (int i = 0; i < list.Count(); ++i) {
        out << (i == 0 ? "\n" : ",\n") << "      " << jsonText(list.Line(i));
    }
    out << (list.Count() == 0 ? "]" : "\n    ]");
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

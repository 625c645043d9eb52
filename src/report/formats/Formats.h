#pragma once

#include "report/CheckReport.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// A format that results can be written in.
struct Format {
    std::string_view name; ///< As users name it: "json".
    void (*write)(std::ostream& out, const CheckReport& report);
};

/// All formats, in the order in which users see their names.
const std::vector<Format>& formats();

/// The format of that name; null if there is none.
const Format* findFormat(std::string_view name);

/// A summary for people: the counts, each finding under its page, and how to see the rest. Paths
/// are shown from the top of the site on.
void writeText(std::ostream& out, const CheckReport& report);

/// Objects for programs, with a version; docs/findings.schema.json describes them. Bytes that are
/// not UTF-8 become U+FFFD.
void writeJsonReport(std::ostream& out, const CheckReport& report);

/// SARIF 2.1.0 (OASIS): a rule for each kind, a result for each finding. A baseline shows as
/// baselineState.
void writeSarif(std::ostream& out, const CheckReport& report);

/// JUnit's XML: a suite for each page, a failed test for each error, a skipped one for each note, a
/// passed one for a page without either. Known findings are left out.
void writeJunit(std::ostream& out, const CheckReport& report);

/// Workflow commands of GitHub Actions, which show as annotations of a pull request: one line per
/// finding. Known findings are left out.
void writeGithub(std::ostream& out, const CheckReport& report);

/// The Code Quality report of GitLab. Known findings are left out.
void writeGitlab(std::ostream& out, const CheckReport& report);

/// A table of the findings (RFC 4180) that is safe to open in a spreadsheet: no cell is a formula.
void writeCsv(std::ostream& out, const CheckReport& report);

/// Markdown that fits into a comment on a pull request. Each target is there once; known findings
/// are left out, and a last line counts what did not fit.
void writeMarkdown(std::ostream& out, const CheckReport& report);

/// One HTML page that needs no other file: totals, the site as a map, and the findings to search,
/// group and print. After a check of local files it shows the line of each finding, read again now.
/// Names and references of the site are only ever shown as text.
void writeHtmlPage(std::ostream& out, const CheckReport& report);

} // namespace quillmark

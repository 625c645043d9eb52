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
    std::string_view purpose;
    void (*write)(std::ostream& out, const CheckReport& report);
};

/// All formats, in the order of their help text.
const std::vector<Format>& formats();

/// The format of that name, or null.
const Format* findFormat(std::string_view name);

/// What a person wants to know of a check: the counts, each finding under its page, and how to see
/// the rest. Names below the top are shown from there on.
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

/// Workflow commands of GitHub Actions, which show as annotations of a pull request: a line a
/// finding. Known findings are left out.
void writeGithub(std::ostream& out, const CheckReport& report);

/// The Code Quality report of GitLab. Known findings are left out.
void writeGitlab(std::ostream& out, const CheckReport& report);

/// A table of the findings (RFC 4180) that a spreadsheet may open: no cell is a formula.
void writeCsv(std::ostream& out, const CheckReport& report);

/// Markdown that fits into a comment of a pull request, each target once; says what was left out.
/// Known findings are.
void writeMarkdown(std::ostream& out, const CheckReport& report);

/// One page that needs no other file: totals, the site as a map, and the findings to search, group
/// and print. A check of local files shows the line of each finding, read anew. Nothing in the
/// names and references of the site takes effect.
void writeHtmlPage(std::ostream& out, const CheckReport& report);

} // namespace quillmark

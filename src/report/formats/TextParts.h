#pragma once

#include "report/CheckReport.h"
#include "report/formats/Style.h"

#include <cstddef>
#include <ostream>
#include <string>

namespace quillmark {

/// The text of a check with the classic rules: the invalid references under their pages.
void writeClassicText(std::ostream& out, const CheckReport& report);

/// The text of a check with the web rules: findings with their places and suggestions.
void writeWebText(std::ostream& out, const CheckReport& report);

/// Writes what was checked, the counts (`read` is "page" or "file"), and how the run ended if it
/// did not finish.
void writeTextHeading(std::ostream& out, const CheckReport& report, const std::string& what,
                      const std::string& read);

/// Writes a count and, in the next column, the options that show more.
void writeCount(std::ostream& out, const CheckReport& report, const std::string& text,
                const std::string& hint);

/// "2 errors, 1 note", and with a baseline: "2 new errors, 1 new note, 5 known, 1 mended".
std::string findingCounts(const CheckReport& report);

/// What a baseline adds to the number of findings: ", 5 known, 1 mended", or nothing.
std::string baselineCounts(const CheckReport& report);

/// The text, with blanks added up to `width` bytes.
std::string padded(std::string text, std::size_t width);

/// The number of files in all groups of duplicates.
std::size_t countOfDuplicates(const SiteResults& site);

} // namespace quillmark

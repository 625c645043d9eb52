#pragma once

#include "command/options/Options.h"
#include "report/CheckReport.h"
#include "ui/Workspace.h"

#include <functional>
#include <ostream>
#include <string>

namespace quillmark {

/// Throws CannotStart if a result cannot be written where the command line wants it. Called before
/// the run, so that the check of a large site is not lost to a mistyped folder.
void requireWritableResults(const Options& options);

/// Writes the results that the command line asks for, or else the summary. Throws a Failure that
/// names all that could not be written.
void writeResults(const Options& options, CheckReport& report, const Workspace& workspace);

/// Writes the outcome and every list as one JSON object (RFC 8259). Bytes that are not UTF-8 become
/// U+FFFD.
void writeJson(std::ostream& out, RunOutcome outcome, const Workspace& workspace);

/// Whether the summary goes to standard output.
bool printsSummary(const Options& options);

/// Calls `write`, which writes the file. A Failure that it throws then names the file.
void writing(const std::string& file, const std::function<void()>& write);

} // namespace quillmark

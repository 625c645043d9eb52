#pragma once

#include "run/RunState.h"
#include "settings/Settings.h"
#include "store/ResultLists.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillmark {

/// Writes what a run found as a text report with CR LF lines, replacing any file at `path`: the
/// sections that the SAVE_... options ask for, with byte totals in the headings if the profile asks
/// for statistics and the run has them. Throws a Failure if the file cannot be created or written;
/// a partly written file is left as it is.
void WriteReport(const std::filesystem::path& path, const ResultLists& lists,
                 const Settings& settings, const RunState& run);

/// The text, blanks up to `width` bytes (none for a text as long or longer), and one tab.
std::string PadToColumn(std::string_view text, std::size_t width);

} // namespace quillmark

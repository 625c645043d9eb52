#pragma once

#include "run/RunState.h"

#include <string>
#include <vector>

namespace quillmark {

/// What a user must know before trusting the results: how much of the pages was not read, and which
/// references were taken for files though they lead to the web. Each text has a few sentences and
/// no line end; there is none if there is nothing to warn of. `pages` is the number of pages that
/// the run read.
std::vector<std::string> readingWarnings(const ReadingFigures& figures, int pages);

} // namespace quillmark

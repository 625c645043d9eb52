#pragma once

#include "store/ResultList.h"

#include <string>
#include <string_view>

namespace quillmark {

/// Rebuilds a list from a text of items separated by ",": each item in upper case, empty items left
/// out, blanks kept as they are.
void SplitFileMasks(std::string_view text, ResultList& masks);

/// The lines of the list joined by ",", without blanks.
std::string JoinFileMasks(const ResultList& masks);

} // namespace quillmark

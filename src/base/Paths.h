#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The text with every "\" replaced by "/".
std::string ToForwardSlashes(std::string_view text);

/// The text with every "/" replaced by "\".
std::string ToBackSlashes(std::string_view text);

/// The folder with "\" appended unless it ends in one; every file that the program keeps beside
/// itself is named as this result followed by the file name.
std::string WithTrailingBackslash(std::string_view folder);

/// How deep a "/" form directory lies: its "/" characters without the last character of the text,
/// so that "/www/docs/" gives 2 and "/" gives 0. A directory in "\" form gives 0.
int StartLevel(std::string_view directory);

} // namespace quillmark

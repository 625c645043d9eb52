#pragma once

#include <string>
#include <string_view>

namespace quillmark {

/// The text with every "\" replaced by "/".
std::string ToForwardSlashes(std::string_view text);

/// The text with every "/" replaced by "\".
std::string ToBackSlashes(std::string_view text);

/// Appends "\" to a folder unless it ends in one. Every file that the program keeps beside itself
/// is named by this result followed by the file name.
std::string WithTrailingBackslash(std::string_view folder);

/// The depth of a directory in "/" form: the number of "/" in it, its last character not counted.
/// "/www/docs/" gives 2, "/" gives 0. A directory in "\" form gives 0.
int StartLevel(std::string_view directory);

} // namespace quillmark

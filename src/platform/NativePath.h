#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quillmark {

/// A path in "\" form as this machine's file system takes it. Where the separator is "/", every "\"
/// becomes one, so that a name with a "\" in it cannot be reached.
std::filesystem::path nativePath(std::string_view backslashForm);
/// The same as a plain text, for calls that need no path object.
std::string nativeName(std::string_view backslashForm);

} // namespace quillmark

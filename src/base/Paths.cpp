#include "base/Paths.h"

#include <algorithm>

namespace quillmark {

namespace {

std::string replaced(std::string_view text, char from, char to) {
    std::string result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

} // namespace

std::string ToForwardSlashes(std::string_view text) {
    return replaced(text, '\\', '/');
}

std::string ToBackSlashes(std::string_view text) {
    return replaced(text, '/', '\\');
}

std::string WithTrailingBackslash(std::string_view folder) {
    std::string result(folder);
    if (!folder.ends_with('\\')) {
        result += '\\';
    }
    return result;
}

int StartLevel(std::string_view directory) {
    if (directory.empty()) {
        return 0;
    }
    directory.remove_suffix(1);
    return static_cast<int>(std::count(directory.begin(), directory.end(), '/'));
}

} // namespace quillmark

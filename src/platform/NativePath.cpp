#include "platform/NativePath.h"

#include "base/Paths.h"

namespace quillmark {

std::filesystem::path nativePath(std::string_view backslashForm) {
    return nativeName(backslashForm);
}

std::string nativeName(std::string_view backslashForm) {
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        return ToForwardSlashes(backslashForm);
    } else {
        return std::string(backslashForm);
    }
}

} // namespace quillmark

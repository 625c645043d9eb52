#include "ui/profile/NameCompletion.h"

#include "base/UpperCase.h"

#include <algorithm>

namespace quillmark {

std::optional<std::size_t> completion(const std::vector<std::string>& names,
                                      std::string_view typedText) {
    if (typedText.empty()) {
        return std::nullopt;
    }
    const std::string begin = upperCase(typedText);
    const auto found = std::find_if(names.begin(), names.end(), [&begin](const std::string& name) {
        // Both in upper case: a letter and its capital may differ in their number of bytes.
        const std::string upper = upperCase(name);
        return upper.size() > begin.size() && upper.starts_with(begin);
    });
    if (found == names.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - names.begin());
}

} // namespace quillmark

#include "store/FileMasks.h"

#include "base/UpperCase.h"

#include <algorithm>

namespace quillmark {

void SplitFileMasks(std::string_view text, ResultList& masks) {
    masks.Clear();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        if (end > 0) {
            masks.Append(upperCase(text.substr(0, end)));
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::string JoinFileMasks(const ResultList& masks) {
    std::string text;
    for (int i = 0; i < masks.Count(); ++i) {
        text += i == 0 ? "" : ",";
        text += masks.Line(i);
    }
    return text;
}

} // namespace quillmark

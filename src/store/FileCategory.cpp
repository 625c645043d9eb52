#include "store/FileCategory.h"

#include "base/PathParser.h"
#include "base/UpperCase.h"

#include <algorithm>
#include <string>

namespace quillmark {

bool ListContains(const ResultList& list, std::string_view text) {
    for (int i = 0; i < list.Count(); ++i) {
        if (list.Line(i) == text) {
            return true;
        }
    }
    return false;
}

bool subCheckMask(std::string_view name, std::optional<FileCategory> selected,
                  const CategoryMasks& masks) {
    if (!selected) {
        return false;
    }
    const PathParser parser(name);
    const std::string_view extension = parser.Extension();
    switch (*selected) {
    case FileCategory::All:
        return true;
    case FileCategory::Code:
        return ListContains(masks.lstCodeMask, extension);
    case FileCategory::Image:
        return ListContains(masks.lstImageMask, extension);
    case FileCategory::Multimedia:
        return ListContains(masks.lstMultimediaMask, extension);
    case FileCategory::Document:
        return ListContains(masks.lstDocumentMask, extension);
    case FileCategory::Archive:
        return ListContains(masks.lstArchiveMask, extension);
    case FileCategory::UserDefined:
        // Users write their own masks with the "." or without it.
        return ListContains(masks.lstFileMasks, "." + std::string(extension)) ||
               ListContains(masks.lstFileMasks, extension);
    }
    return false;
}

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

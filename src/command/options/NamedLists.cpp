#include "command/options/NamedLists.h"

#include "base/UpperCase.h"

namespace quillmark {

namespace {

constexpr std::size_t LineWidth = 64;

} // namespace

const std::vector<NamedList>& namedLists() {
    using Lists = ResultLists;
    static const std::vector<NamedList> all = {
        {"DirectoryList", &Lists::DirectoryList, nullptr},
        {"FileList", &Lists::FileList, nullptr},
        {"FileSizes", &Lists::FileSizes, nullptr},
        {"GetFileList", &Lists::GetFileList, nullptr},
        {"ReferenceList", &Lists::ReferenceList, &Lists::ReferenceListFrom},
        {"ReferenceListFrom", &Lists::ReferenceListFrom, nullptr},
        {"InvalidReferences", &Lists::InvalidReferences, &Lists::InvalidReferencesFrom},
        {"InvalidReferencesFrom", &Lists::InvalidReferencesFrom, nullptr},
        {"IgnoredReferences", &Lists::IgnoredReferences, &Lists::IgnoredReferencesFrom},
        {"IgnoredReferencesFrom", &Lists::IgnoredReferencesFrom, nullptr},
        {"UnusedList", &Lists::UnusedList, nullptr},
        {"DuplicateList", &Lists::DuplicateList, nullptr},
    };
    return all;
}

const NamedList* findList(std::string_view name) {
    const std::string upper = upperAscii(name);
    for (const NamedList& list : namedLists()) {
        if (upperAscii(list.name) == upper) {
            return &list;
        }
    }
    return nullptr;
}

std::string namesOfLists() {
    std::string text;
    std::size_t column = 0;
    for (const NamedList& list : namedLists()) {
        if (column > 0) {
            const bool breaks = column + list.name.size() + 2 > LineWidth;
            text += breaks ? ",\n" : ", ";
            column = breaks ? 0 : column + 2;
        }
        text += list.name;
        column += list.name.size();
    }
    return text;
}

} // namespace quillmark

#pragma once

#include "store/ResultLists.h"

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// A result list under the name that users know it by.
struct NamedList {
    std::string_view name;
    ResultList ResultLists::*lines;
    ResultList ResultLists::*from; ///< The referring files of a pair's first list, or null.
};

/// All result lists except Message, in the order of the JSON output.
const std::vector<NamedList>& namedLists();

/// The list of that name, in any letter case; null if there is none.
const NamedList* findList(std::string_view name);

/// The names, in lines that fit the help text.
std::string namesOfLists();

} // namespace quillmark

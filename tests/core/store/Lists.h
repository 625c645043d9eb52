#pragma once

#include "store/ResultList.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillmark {

/// A list of the lines.
inline ResultList listOf(const std::vector<std::string>& lines) {
    ResultList list;
    for (const std::string& line : lines) {
        list.Append(line);
    }
    return list;
}

/// The lines of a list of either kind.
template <typename List> std::vector<std::string> linesOf(const List& list) {
    std::vector<std::string> lines;
    lines.reserve(static_cast<std::size_t>(list.Count()));
    for (int i = 0; i < list.Count(); ++i) {
        lines.emplace_back(list.Line(i));
    }
    return lines;
}

} // namespace quillmark

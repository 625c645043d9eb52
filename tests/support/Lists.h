#pragma once

#include "store/ResultList.h"

#include <string>
#include <vector>

namespace quillmark {

using Lines = std::vector<std::string>;

inline ResultList listOf(const Lines& lines) {
    ResultList list;
    for (const std::string& line : lines) {
        list.Append(line);
    }
    return list;
}

/// The lines of a list of either kind.
template <typename List> Lines linesOf(const List& list) {
    Lines lines;
    for (int i = 0; i < list.Count(); ++i) {
        lines.emplace_back(list.Line(i));
    }
    return lines;
}

} // namespace quillmark

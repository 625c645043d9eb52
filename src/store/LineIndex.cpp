#include "store/LineIndex.h"

namespace quillmark {

LineIndex::LineIndex(const ResultList& list, NameComparison comparison)
    : list_(list), lines_(0, NameHash(comparison), NameEqual(comparison)) {}

bool LineIndex::contains(std::string_view line) {
    for (; known_ < list_.Count(); ++known_) {
        lines_.insert(list_.Line(known_));
    }
    return lines_.contains(line);
}

} // namespace quillmark

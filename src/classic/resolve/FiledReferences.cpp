#include "classic/resolve/FiledReferences.h"

#include <functional>

namespace quillmark {

bool FiledReferences::append(std::string_view reference, std::string_view from) {
    if (filed_.contains({reference, from})) {
        return false;
    }
    pair_.Append(reference, from);
    remember();
    return true;
}

void FiledReferences::appendFrom(const ListPair& other, int i) {
    pair_.AppendFrom(other, i);
    remember();
}

void FiledReferences::remember() {
    const int last = lines().Count() - 1;
    filed_.emplace(lines().Line(last), from().Line(last));
}

void FiledReferences::remove(int i) {
    filed_.erase({lines().Line(i), from().Line(i)});
    pair_.Remove(i);
}

std::size_t FiledReferences::EntryHash::operator()(const Entry& entry) const {
    const std::hash<std::string_view> hash;
    return hash(entry.first) * 31 + hash(entry.second);
}

} // namespace quillmark

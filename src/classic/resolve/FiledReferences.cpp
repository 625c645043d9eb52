#include "classic/resolve/FiledReferences.h"

#include <functional>

namespace quillmark {

bool FiledReferences::contains(std::string_view reference, std::string_view from) const {
    return filed_.contains({reference, from});
}

void FiledReferences::append(std::string_view reference, std::string_view from) {
    pair_.Append(reference, from);
    const int last = lines().Count() - 1;
    filed_.emplace(lines().Line(last), this->from().Line(last));
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

#include "web/address/RelativeReference.h"

#include "web/address/PathSegments.h"
#include "web/address/PercentCoding.h"

#include <algorithm>

namespace quillmark::web {

std::string relativeReference(std::string_view page, std::string_view target) {
    const std::string_view from = folderOf(page);
    const auto differ = std::mismatch(from.begin(), from.end(), target.begin(), target.end());
    const auto common = static_cast<std::size_t>(differ.first - from.begin());
    const std::size_t shared = folderOf(from.substr(0, common)).size();
    std::string reference;
    for (const char c : from.substr(shared)) {
        reference += c == '/' ? "../" : "";
    }
    if (reference.empty() && target.size() == shared) {
        return "./";
    }
    reference += asReference(target.substr(shared));
    return reference;
}

} // namespace quillmark::web

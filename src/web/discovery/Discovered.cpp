#include "web/discovery/Discovered.h"

#include <algorithm>

namespace quillmark::web {

const PageNotes* Discovered::readPage(std::uint32_t target) const {
    const std::uint32_t page = pageOfTarget[target];
    return page < notes.size() && notes[page].read ? &notes[page] : nullptr;
}

bool Discovered::isMissing(const OpenFragment& open) const {
    const PageNotes* const page = readPage(open.target);
    if (open.missing || page == nullptr) {
        return open.missing;
    }
    const auto holds = [page](std::uint64_t hash) {
        return std::binary_search(page->ids.begin(), page->ids.end(), hash);
    };
    const bool judged =
        page->kind == PageKind::Html || (page->kind == PageKind::Svg && open.svgUse);
    return judged && !holds(open.rawHash) && !holds(open.decodedHash);
}

} // namespace quillmark::web

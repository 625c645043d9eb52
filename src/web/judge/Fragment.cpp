#include "web/judge/Fragment.h"

namespace quillmark::web {

bool isTopOfPage(std::string_view fragment) {
    return fragment.empty() || (fragment.size() == 3 && (fragment[0] | 0x20) == 't' &&
                                (fragment[1] | 0x20) == 'o' && (fragment[2] | 0x20) == 'p');
}

bool isRoute(std::string_view fragment) {
    return fragment.starts_with('/') || fragment.starts_with("!/");
}

} // namespace quillmark::web

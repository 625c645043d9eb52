#include "web/page/PageContent.h"

namespace quillmark::web {

void PageContent::clear() {
    references.clear();
    ids.clear();
    mapNames.clear();
    base.reset();
    texts.clear();
    decoded.clear();
}

} // namespace quillmark::web

#include "web/page/PageContent.h"

namespace quillmark::web {

void readPage(std::string_view bytes, PageKind kind, PageContent& content) {
    content.clear();
    static_cast<void>(bytes);
    static_cast<void>(kind);
}

} // namespace quillmark::web

#include "web/page/PageContent.h"

namespace quillmark::web {

namespace {

/// Bytes to keep for the next page. One huge page must not hold its memory for the rest of the run.
constexpr std::size_t MostKept = 1U << 20U;

template <class Values> void clearSome(Values& values) {
    values.clear();
    if (values.capacity() * sizeof(values[0]) > MostKept) {
        Values().swap(values);
    }
}

} // namespace

void PageContent::clear() {
    clearSome(references);
    clearSome(ids);
    clearSome(mapNames);
    base.reset();
    texts.clear();
    clearSome(decoded);
}

} // namespace quillmark::web

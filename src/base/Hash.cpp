#include "base/Hash.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

namespace quillmark {

std::uint64_t hashOf(std::string_view bytes) {
    return XXH3_64bits(bytes.data(), bytes.size());
}

} // namespace quillmark

#pragma once

#include <cstdlib>

namespace quillmark::test {

/// Ends a fuzz run with a finding unless the condition holds.
inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace quillmark::test

#pragma once

#include "fuzz/Require.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace quillmark::test {

/// What a fuzz program does with each input.
void fuzz(FuzzedDataProvider& data);

} // namespace quillmark::test

// What the web answers: compressed bodies of any bytes, addresses to be redirected to.

#include "base/Failure.h"
#include "fuzz/Require.h"
#include "platform/http/Gunzip.h"
#include "platform/http/WebAddress.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace quillmark::test {
namespace {

void unpack(FuzzedDataProvider& data) {
    const std::size_t limit = data.ConsumeIntegral<std::uint16_t>();
    Body body;
    while (data.remaining_bytes() > 0) {
        body.append(data.ConsumeRandomLengthString(1000));
    }
    try {
        require(gunzip(body, limit).size() <= limit);
    } catch (const Failure&) {
        return;
    }
}

void address(const std::string& text) {
    try {
        require(WebAddress(text).host().size() <= 3 * text.size());
    } catch (const Failure&) {
        return;
    }
}

} // namespace
} // namespace quillmark::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace quillmark::test;
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeBool()) {
        unpack(data);
    } else {
        address(data.ConsumeRemainingBytesAsString());
    }
    return 0;
}

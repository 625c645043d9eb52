#include "platform/host/FtpTimeouts.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cstdlib>

namespace quillmark {

namespace {

constexpr double LongestSeconds = 24 * 60 * 60;

std::chrono::milliseconds fromVariable(const char* name, std::chrono::milliseconds usual) {
    const char* value = std::getenv(name);
    const double seconds = value == nullptr ? 0 : leadingNumber(value);
    if (!(seconds > 0)) {
        return usual;
    }
    const std::chrono::duration<double> wanted(std::min(seconds, LongestSeconds));
    return std::chrono::ceil<std::chrono::milliseconds>(wanted);
}

} // namespace

FtpTimeouts timeoutsFromEnvironment() {
    return {fromVariable("QUILLMARK_CONNECT_TIMEOUT", FtpTimeouts::Connect),
            fromVariable("QUILLMARK_REPLY_TIMEOUT", FtpTimeouts::Reply),
            fromVariable("QUILLMARK_TRANSFER_TIMEOUT", FtpTimeouts::Transfer),
            FtpTimeouts::Operation};
}

} // namespace quillmark

#include "platform/host/FtpTimeouts.h"

#include "base/Numbers.h"

#include <algorithm>
#include <cstdlib>

namespace quillmark {

namespace {

constexpr double LongestSeconds = 24 * 60 * 60;

void setFrom(const char* variable, std::chrono::milliseconds& time) {
    const char* const value = std::getenv(variable);
    const double seconds = value == nullptr ? 0 : leadingNumber(value);
    if (seconds > 0) {
        const std::chrono::duration<double> wanted(std::min(seconds, LongestSeconds));
        time = std::chrono::ceil<std::chrono::milliseconds>(wanted);
    }
}

} // namespace

FtpTimeouts timeoutsFromEnvironment() {
    FtpTimeouts timeouts;
    setFrom("QUILLMARK_CONNECT_TIMEOUT", timeouts.connect);
    setFrom("QUILLMARK_REPLY_TIMEOUT", timeouts.reply);
    setFrom("QUILLMARK_TRANSFER_TIMEOUT", timeouts.transfer);
    return timeouts;
}

} // namespace quillmark

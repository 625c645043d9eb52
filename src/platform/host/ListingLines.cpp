#include "platform/host/ListingLines.h"

#include <algorithm>

namespace quillmark {

// Keeps one byte more than is handed over, to see a carriage return behind the longest line.
void ListingLines::take(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        line_ += bytes.substr(0, std::min(end, LongestLine + 1 - line_.size()));
        if (end == bytes.size()) {
            return;
        }
        deliver();
        bytes.remove_prefix(end + 1);
    }
}

void ListingLines::deliver() {
    std::string_view line = line_;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    if (++seen_ > delivered_) {
        delivered_ = seen_;
        item_(line.substr(0, LongestLine));
    }
    line_.clear();
}

} // namespace quillmark

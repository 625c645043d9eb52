#include "platform/host/ListingLines.h"

namespace quillmark {

void ListingLines::take(std::string_view bytes) {
    for (std::size_t end = bytes.find('\n'); end != std::string_view::npos;
         end = bytes.find('\n')) {
        append(bytes.substr(0, end));
        deliver();
        bytes.remove_prefix(end + 1);
    }
    append(bytes);
    begun_ = begun_ || !bytes.empty();
}

void ListingLines::finish() {
    if (begun_) {
        deliver();
    }
}

void ListingLines::restart() {
    line_.clear();
    begun_ = false;
    seen_ = 0;
}

// Keeps one byte more than is handed over, to see a carriage return behind the longest line.
void ListingLines::append(std::string_view bytes) {
    line_ += bytes.substr(0, LongestLine + 1 - line_.size());
}

void ListingLines::deliver() {
    std::string_view line = line_;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    ++seen_;
    if (seen_ > delivered_) {
        delivered_ = seen_;
        item_(line.substr(0, LongestLine));
    }
    line_.clear();
    begun_ = false;
}

} // namespace quillmark

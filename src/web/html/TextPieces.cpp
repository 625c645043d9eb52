#include "web/html/TextPieces.h"

#include <algorithm>

namespace quillmark::web {

namespace {

/// Cuts off the text up to `mark`, and the mark.
std::string_view cut(std::string_view& text, std::string_view mark) {
    const std::size_t end = std::min(text.find(mark), text.size());
    const std::string_view before = text.substr(0, end);
    text.remove_prefix(std::min(end + mark.size(), text.size()));
    return before;
}

} // namespace

bool TextPieces::next() {
    do {
        if (rest_.empty()) {
            return false;
        }
        cdata_ = false;
        if (rest_.starts_with("<!--") || rest_.starts_with("<![CDATA[") ||
            rest_.starts_with("<?")) {
            takeMarkup();
        } else {
            const std::size_t end = std::min(rest_.find('<', 1), rest_.size());
            piece_ = rest_.substr(0, end);
            rest_.remove_prefix(end);
        }
    } while (piece_.empty());
    return true;
}

void TextPieces::takeMarkup() {
    piece_ = {};
    if (rest_.starts_with("<!--")) {
        cut(rest_, "-->");
    } else if (rest_.starts_with("<?")) {
        cut(rest_, "?>");
    } else {
        rest_.remove_prefix(std::string_view("<![CDATA[").size());
        piece_ = cut(rest_, "]]>");
        cdata_ = true;
    }
}

} // namespace quillmark::web

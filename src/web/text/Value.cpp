#include "web/text/Value.h"

#include "web/text/Utf8.h"

#include <algorithm>
#include <array>

namespace quillmark::web {

namespace {

/// The length of the beginning of a text that stands for itself.
std::size_t literalPrefix(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] != '&' && text[i] != '\r' && text[i] != '\0') {
        ++i;
    }
    return i;
}

bool isLiteral(std::string_view raw, const Source& source) {
    if (source.carriageReturns || source.nuls) {
        return literalPrefix(raw) == raw.size();
    }
    return raw.find('&') == std::string_view::npos;
}

/// Bytes that the decoded text needs at most: a NUL becomes three, and the longest that a
/// reference grows by is one ("&nGt;" has five bytes and stands for six).
std::size_t decodedBound(std::string_view raw) {
    const auto count = [raw](char c) {
        return static_cast<std::size_t>(std::count(raw.begin(), raw.end(), c));
    };
    return raw.size() + 2 * count('\0') + count('&');
}

} // namespace

Value decodeValue(std::string_view raw, ReferenceIn in, const Source& source, TextArena& texts) {
    if (isLiteral(raw, source)) {
        return {raw, raw, in};
    }
    char* const start = texts.allocate(decodedBound(raw));
    char* end = start;
    for (ValuePieces pieces(raw, in); pieces.next();) {
        const std::string_view text = pieces.text();
        end = std::copy(text.begin(), text.end(), end);
    }
    const auto size = static_cast<std::size_t>(end - start);
    texts.shrinkLast(size);
    return {{start, size}, raw, in};
}

bool ValuePieces::next() {
    if (rest_.empty()) {
        return false;
    }
    literal_ = true;
    if (rest_[0] == '&') {
        reference_ = readCharacterReference(rest_, in_);
        literal_ = reference_.length == 0;
        take(literal_ ? 1 : reference_.length);
    } else if (rest_[0] == '\0' || rest_[0] == '\r') {
        takeControl();
    } else {
        take(literalPrefix(rest_));
    }
    return true;
}

void ValuePieces::take(std::size_t size) {
    written_ = rest_.substr(0, size);
    rest_.remove_prefix(size);
}

void ValuePieces::takeControl() {
    const std::string_view text = rest_[0] == '\0' ? ReplacementCharacter : "\n";
    std::copy(text.begin(), text.end(), reference_.bytes.begin());
    reference_.size = text.size();
    literal_ = false;
    take(rest_.starts_with("\r\n") ? 2 : 1);
}

const char* ValueSource::at(std::size_t offset) {
    if (value_.text.data() == value_.raw.data()) {
        return value_.raw.data() + offset;
    }
    while (pieceStart_ + pieces_.text().size() <= offset) {
        pieceStart_ += pieces_.text().size();
        if (!pieces_.next()) {
            return value_.raw.data() + value_.raw.size();
        }
    }
    return pieces_.written().data() + (pieces_.literal() ? offset - pieceStart_ : 0);
}

} // namespace quillmark::web

#include "platform/http/Body.h"

namespace quillmark {

void Body::append(std::string_view bytes) {
    size_ += bytes.size();
    while (!bytes.empty()) {
        if (pieces_.empty() || pieces_.back().size() == PieceSize) {
            pieces_.emplace_back();
        }
        std::string& last = pieces_.back();
        const std::string_view part = bytes.substr(0, PieceSize - last.size());
        last.append(part);
        bytes.remove_prefix(part.size());
    }
}

std::string joined(const Body& body) {
    std::string text;
    text.reserve(body.size());
    for (const std::string& piece : body.pieces()) {
        text.append(piece);
    }
    return text;
}

} // namespace quillmark

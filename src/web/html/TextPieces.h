#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// Goes through the text between two tags of XML or SVG: the text outside comments, and the content
/// of CDATA sections.
class TextPieces {
public:
    explicit TextPieces(std::string_view text) : rest_(text) {}

    /// Moves on to the next piece that is not empty; false at the end.
    bool next();
    std::string_view piece() const { return piece_; }
    /// Whether the piece stands in a CDATA section, where there are no character references.
    bool inCdata() const { return cdata_; }

private:
    void takeMarkup();

    std::string_view rest_;
    std::string_view piece_;
    bool cdata_ = false;
};

} // namespace quillmark::web

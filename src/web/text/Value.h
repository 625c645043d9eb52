#pragma once

#include "web/text/CharacterReferences.h"
#include "web/text/Source.h"
#include "web/text/TextArena.h"

#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// The value of an attribute or a piece of text: as written, and with its character references
/// decoded.
struct Value {
    std::string_view text; ///< The same view as `raw` where there is nothing to decode.
    std::string_view raw;
    ReferenceIn in = ReferenceIn::Attribute;
};

/// Decodes a part of a source. Line ends become LF and NUL bytes U+FFFD, as they do for a browser.
Value decodeValue(std::string_view raw, ReferenceIn in, const Source& source, TextArena& texts);

/// Goes through a value as written, stretch by stretch.
class ValuePieces {
public:
    ValuePieces(std::string_view raw, ReferenceIn in) : rest_(raw), in_(in) {}

    /// Moves on to the next piece; false at the end.
    bool next();
    /// What the piece stands for: its own characters, or those of one reference or control
    /// character.
    std::string_view text() const { return literal_ ? written_ : reference_.text(); }
    std::string_view written() const { return written_; }
    bool literal() const { return literal_; }

private:
    void take(std::size_t size);
    void takeControl();

    std::string_view rest_;
    std::string_view written_;
    CharacterReference reference_;
    ReferenceIn in_;
    bool literal_ = true;
};

/// Finds where characters of a decoded value stand in the source. It goes on from the place before,
/// so a value is gone through once.
class ValueSource {
public:
    explicit ValueSource(const Value& value) : value_(value), pieces_(value.raw, value.in) {}

    /// The place in the source of the character at byte `offset` of the decoded text, which must
    /// not lie before the last offset asked for.
    const char* at(std::size_t offset);

private:
    const Value& value_;
    ValuePieces pieces_;
    std::size_t pieceStart_ = 0; ///< Offset of the current piece in the decoded text.
};

} // namespace quillmark::web

#pragma once

#include "web/page/PageContent.h"
#include "web/text/Source.h"

namespace quillmark::web {

/// Tells the lines and columns of places in a page. It counts on from the place before, so a page
/// is gone through once, however many places are asked for.
class Positions {
public:
    explicit Positions(const Source& source) : source_(source), counted_(source.text.data()) {}

    /// The position of a byte of the source, which must not lie before the last one asked for.
    Position at(const char* place);

private:
    const Source& source_;
    const char* counted_; ///< The place that position_ is of.
    Position position_;
};

} // namespace quillmark::web

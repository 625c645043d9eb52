#pragma once

#include "web/page/PageContent.h"
#include "web/text/Source.h"

namespace quillmark::web {

/// Counts lines and columns from one asked place of a page to the next, so that a page is counted
/// once, however many places are asked for.
class Positions {
public:
    explicit Positions(const Source& source) : source_(source), counted_(source.text.data()) {}

    /// The position of a byte of the source, which must not lie before the one asked for last.
    Position at(const char* place);

private:
    const Source& source_;
    const char* counted_; ///< The place that position_ is of.
    Position position_;
};

} // namespace quillmark::web

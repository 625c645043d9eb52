#pragma once

#include "base/PathParser.h"
#include "classic/resolve/ReferenceSink.h"
#include "run/RunContext.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

/// Reads the working copy of a page and hands every reference it makes to the sink. It is literal,
/// not an HTML parser: it knows tags by their angle brackets and references by double-quoted
/// values.
class Scanner {
public:
    /// A longer line, in bytes, is given up with a message; the other lines of the page are
    /// scanned.
    static constexpr std::size_t LongestLine = std::size_t{64} * 1024 * 1024;

    Scanner(RunContext& context, ReferenceSink& sink) : context_(context), sink_(sink) {}

    /// Scans the working copy, if there is one; does nothing once the run is being aborted. Stop
    /// ends it at the next block or tag.
    void ParseFile();
    /// Takes the reference of one tag, given without its angle brackets; a tag gives one at most.
    void CheckCommand(std::string_view tag);
    /// Takes the first double-quoted value behind a 1-based position of the tag.
    void ParseObject(std::size_t position, std::string_view tag);

private:
    void scanBlock(std::string_view block);
    void addPiece(std::string_view piece);
    void endLine();
    void scanLine(std::string_view line);
    void countUnread();

    RunContext& context_;
    ReferenceSink& sink_;
    PathParser parser_;
    std::string pendingLine_;
    bool pieceEmpty_ = true;
    std::size_t unreadBytes_ = 0; ///< Of the page so far, behind the last line that was scanned.
    bool givenUp_ = false;        ///< The pending line is too long.
    std::string upperTag_;
};

} // namespace quillmark

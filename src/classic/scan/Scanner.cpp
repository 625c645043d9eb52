#include "classic/scan/Scanner.h"

#include "base/UpperCase.h"

#include <algorithm>

namespace quillmark {

namespace {

/// Position of the first of either character, or the length of the text. Pages are walked byte by
/// byte here; std::string_view::find_first_of took three times as long.
std::size_t findEither(std::string_view text, char a, char b) {
    const auto* found =
        std::find_if(text.begin(), text.end(), [a, b](char c) { return c == a || c == b; });
    return static_cast<std::size_t>(found - text.begin());
}

} // namespace

void Scanner::ParseFile() {
    if (context_.state.abort) {
        return;
    }
    pendingLine_.clear();
    pieceEmpty_ = true;
    unreadBytes_ = 0;
    context_.outside.disk.read(context_.workingCopy, [this](std::string_view block) {
        if (context_.state.localMode) {
            context_.outside.events.DoEvents();
        }
        context_.state.reading.bytes += block.size();
        unreadBytes_ += block.size();
        scanBlock(block);
    });
    countUnread();
}

// The zero bytes that fill up the working copy are not the page's. A reference needs its double
// quote: without one nothing is lost, as behind "</html>" at the end of a page.
void Scanner::countUnread() {
    const std::size_t fill = pendingLine_.size() - (pendingLine_.find_last_not_of('\0') + 1);
    ReadingFigures& figures = context_.state.reading;
    figures.bytes -= fill;
    if (pendingLine_.find('"') != std::string::npos) {
        ++figures.pagesCutShort;
        figures.bytesUnread += unreadBytes_ - fill;
    }
}

// A line is scanned only when a line break follows another one: pages with carriage return and line
// feed are scanned line by line, pages with bare line feeds paragraph by paragraph, and what
// follows the last such pair is not scanned at all.
void Scanner::scanBlock(std::string_view block) {
    while (!block.empty()) {
        const std::size_t length = findEither(block, '\r', '\n');
        pendingLine_.append(block.substr(0, length));
        pieceEmpty_ = pieceEmpty_ && length == 0;
        if (length == block.size()) {
            return;
        }
        block.remove_prefix(length + 1);
        endPiece(block.size());
    }
}

/// `left` is what the block still holds.
void Scanner::endPiece(std::size_t left) {
    if (pieceEmpty_) {
        scanLine(pendingLine_);
        pendingLine_.clear();
        unreadBytes_ = left;
    }
    pieceEmpty_ = true;
}

// Once a "<" was seen on the line, every stretch that ends in ">" counts as a tag, and a further
// "<" drops what was collected: "<a <b c> d>" holds the tags "b c" and " d".
void Scanner::scanLine(std::string_view line) {
    line.remove_prefix(std::min(line.find('<'), line.size()));
    while (!line.empty()) {
        line.remove_prefix(1);
        const std::size_t end = findEither(line, '<', '>');
        if (end < line.size() && line[end] == '>') {
            CheckCommand(line.substr(0, end));
        }
        line.remove_prefix(end);
    }
}

void Scanner::CheckCommand(std::string_view tag) {
    context_.outside.messages.postDebug("Check Command: ", tag);
    upperAscii(tag, upperTag_);
    const Configuration& configuration = context_.settings.configuration;
    for (int i = 0; i < configuration.lstCheckCommand.Count(); ++i) {
        const std::string_view keyword = configuration.lstCheckCommand.Line(i);
        const std::size_t found = upperTag_.find(keyword);
        if (found == std::string::npos) {
            continue;
        }
        if (keyword != "VALUE" || configuration.IGNORE_VALUE == 0) {
            ParseObject(found + 1, tag);
            return;
        }
    }
}

void Scanner::ParseObject(std::size_t position, std::string_view tag) {
    context_.outside.messages.postDebug("ParseObject: ", tag);
    const std::size_t open = tag.find('"', position - 1);
    if (open == std::string_view::npos) {
        return;
    }
    const std::size_t close = tag.find('"', open + 1);
    if (close == std::string_view::npos || close == open + 1) {
        return;
    }
    const std::string_view value = tag.substr(open + 1, close - open - 1);
    parser_.FileSpec(value);
    sink_.MakeAddition(parser_.Path(), parser_.FileName(), value);
}

} // namespace quillmark

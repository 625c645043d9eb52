#include "classic/scan/Scanner.h"

#include "base/UpperCase.h"

#include <algorithm>

namespace quillmark {

namespace {

/// Finds the places of two characters in a text, one after the other. Each character is searched
/// for by itself, over each byte once: comparing every byte with both took a third of the time of a
/// check.
class EitherOf {
public:
    EitherOf(std::string_view text, char a, char b)
        : text_(text), a_{a, find(a, 0)}, b_{b, find(b, 0)} {}

    /// Position of the first of either from `start` on, or the length of the text. `start` only
    /// grows.
    std::size_t next(std::size_t start) {
        for (Place* place : {&a_, &b_}) {
            if (place->position < start) {
                place->position = find(place->character, start);
            }
        }
        return std::min(a_.position, b_.position);
    }

private:
    struct Place {
        char character;
        std::size_t position;
    };

    std::size_t find(char c, std::size_t start) const {
        return std::min(text_.find(c, start), text_.size());
    }

    std::string_view text_;
    Place a_;
    Place b_;
};

/// Empties a text, and frees its memory if an unusual page made it large.
void empty(std::string& text) {
    constexpr std::size_t Usual = std::size_t{1} << 20U;
    text.clear();
    if (text.capacity() > Usual) {
        text.shrink_to_fit();
    }
}

} // namespace

void Scanner::ParseFile() {
    if (context_.state.abort) {
        return;
    }
    endLine();
    pieceEmpty_ = true;
    unreadBytes_ = 0;
    context_.outside.disk.read(context_.workingCopy, [this](std::string_view block) {
        if (context_.stopRequested()) {
            return false;
        }
        context_.state.reading.bytes += block.size();
        unreadBytes_ += block.size();
        scanBlock(block);
        return true;
    });
    if (!context_.state.stopped) {
        countUnread();
    }
}

// The zero bytes that fill up the working copy do not belong to the page. A reference needs a
// double quote: an unread rest without one holds none, like the "</html>" at the end of most pages.
void Scanner::countUnread() {
    const std::size_t fill = pendingLine_.size() - (pendingLine_.find_last_not_of('\0') + 1);
    ReadingFigures& figures = context_.state.reading;
    figures.bytes -= fill;
    if (givenUp_ || pendingLine_.find('"') != std::string::npos) {
        ++figures.pagesCutShort;
        figures.bytesUnread += unreadBytes_ - fill;
    }
}

// A line is scanned only when a line break follows another one: pages with carriage return and line
// feed are scanned line by line, pages with bare line feeds paragraph by paragraph, and what
// follows the last such pair is not scanned at all.
void Scanner::scanBlock(std::string_view block) {
    EitherOf breaks(block, '\r', '\n');
    std::size_t start = 0;
    for (std::size_t end = breaks.next(0); end < block.size(); end = breaks.next(start)) {
        addPiece(block.substr(start, end - start));
        if (pieceEmpty_) {
            scanLine(pendingLine_);
            endLine();
            unreadBytes_ = block.size() - end - 1;
        }
        pieceEmpty_ = true;
        start = end + 1;
    }
    addPiece(block.substr(start));
}

// No page has such a line. The file is something else, and its line would fill the memory.
void Scanner::addPiece(std::string_view piece) {
    pieceEmpty_ = pieceEmpty_ && piece.empty();
    if (givenUp_) {
        return;
    }
    if (pendingLine_.size() + piece.size() > LongestLine) {
        context_.outside.messages.post("Gave up a line longer than 64 MB in ",
                                       context_.state.currentFile);
        endLine();
        givenUp_ = true;
        return;
    }
    pendingLine_.append(piece);
}

void Scanner::endLine() {
    givenUp_ = false;
    empty(pendingLine_);
    empty(upperTag_);
}

// Once a "<" was seen on the line, every stretch that ends in ">" counts as a tag, and a further
// "<" drops what was collected: "<a <b c> d>" holds the tags "b c" and " d".
void Scanner::scanLine(std::string_view line) {
    line.remove_prefix(std::min(line.find('<'), line.size()));
    EitherOf brackets(line, '<', '>');
    std::size_t start = 1;
    for (std::size_t end = brackets.next(start); end < line.size() && !context_.stopRequested();
         end = brackets.next(start)) {
        if (line[end] == '>') {
            CheckCommand(line.substr(start, end - start));
        }
        start = end + 1;
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
        // The first keyword of the list that the tag holds decides, wherever the tag holds it.
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

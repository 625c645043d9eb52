#include "web/html/Tokenizer.h"

#include "web/html/RawText.h"
#include "web/text/Ascii.h"

#include <array>
#include <cstring>

namespace quillmark::web {

namespace {

/// For each byte, what it adds to a name: the byte in lower case, or 0 if it ends the name.
using NameBytes = std::array<unsigned char, 256>;

constexpr NameBytes nameBytes(std::string_view ends) {
    NameBytes bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto c = static_cast<char>(i);
        // A NUL is part of a name, but 0 ends one. No known name has 0xFF, so this one is unknown.
        bytes.at(i) = c == '\0' ? 0xFF : static_cast<unsigned char>(lowerAscii(c));
        if (isBlank(c) || ends.find(c) != std::string_view::npos) {
            bytes.at(i) = 0;
        }
    }
    return bytes;
}

constexpr NameBytes TagNameBytes = nameBytes("/>");
constexpr NameBytes AttributeNameBytes = nameBytes("/>=");

const char* readName(const char* p, const char* end, const NameBytes& bytes, NameKey& key) {
    for (; p != end; ++p) {
        const unsigned char lower = bytes[static_cast<unsigned char>(*p)];
        if (lower == 0) {
            break;
        }
        key.append(lower);
    }
    return p;
}

const char* skipBlanks(const char* p, const char* end) {
    while (p != end && isBlank(*p)) {
        ++p;
    }
    return p;
}

std::string_view view(const char* from, const char* to) {
    return {from, static_cast<std::size_t>(to - from)};
}

const char* find(const char* p, const char* end, char c) {
    const void* found = std::memchr(p, c, static_cast<std::size_t>(end - p));
    return found == nullptr ? end : static_cast<const char*>(found);
}

/// The place behind the next `text`; the end if there is none.
const char* behind(const char* p, const char* end, std::string_view text) {
    const std::size_t found = view(p, end).find(text);
    return found == std::string_view::npos ? end : p + found + text.size();
}

/// The place behind a comment whose "<!--" ends at p. "<!-->" and "<!--->" are whole comments, and
/// "--!>" ends one, too (WHATWG HTML, 13.2.5.43 to 13.2.5.52).
const char* afterComment(const char* p, const char* end) {
    const std::string_view text = view(p, end);
    if (text.starts_with(">")) {
        return p + 1;
    }
    if (text.starts_with("->")) {
        return p + 2;
    }
    for (std::size_t at = text.find("--"); at != std::string_view::npos;
         at = text.find("--", at + 1)) {
        const std::string_view next = text.substr(at + 2, 2);
        if (next.starts_with(">") || next == "!>") {
            return p + at + (next == "!>" ? 4 : 3);
        }
    }
    return end;
}

} // namespace

bool Tokenizer::next() {
    while ((at_ = find(at_, end_, '<')) != end_) {
        const char* const name = at_ + 1;
        if (name == end_) {
            at_ = end_;
            return false;
        }
        if (isLetter(*name)) {
            tag_.isEnd = false;
            return readTag(name);
        }
        if (*name != '/' || name + 1 == end_ || !isLetter(name[1])) {
            at_ = afterMarkup(name);
        } else if (endTags_) {
            tag_.isEnd = true;
            return readTag(name + 1);
        } else {
            skipEndTag(name + 1);
        }
    }
    return false;
}

bool Tokenizer::readTag(const char* name) {
    NameKey key;
    tag_.start = at_;
    const char* p = readName(name, end_, TagNameBytes, key);
    tag_.element = findElement(view(name, p), key);
    if (syntax_ == Syntax::Xml && tag_.element == Element::Other) {
        // The name may have the prefix of a namespace: "svg:use".
        const std::string_view whole = view(name, p);
        tag_.element = findElement(whole.substr(whole.rfind(':') + 1));
    }
    tag_.clearAttributes();
    tag_.selfClosing = false;
    return readAttributes(p);
}

void Tokenizer::skipEndTag(const char* name) {
    NameKey key;
    tag_.clearAttributes();
    readAttributes(readName(name, end_, TagNameBytes, key));
}

bool Tokenizer::readAttributes(const char* p) {
    while (p != end_) {
        if (*p == '>') {
            at_ = p + 1;
            tag_.behind = at_;
            return true;
        }
        if (*p == '/') {
            ++p;
            tag_.selfClosing = p != end_ && *p == '>';
        } else if (isBlank(*p)) {
            ++p;
        } else {
            p = readAttribute(p);
        }
    }
    at_ = end_;
    return false;
}

const char* Tokenizer::readAttribute(const char* p) {
    NameKey key;
    const char* const name = p;
    if (*p == '=') { // As its first character a name may have "=".
        key.append('=');
        ++p;
    }
    p = readName(p, end_, AttributeNameBytes, key);
    const Attribute attribute = findAttribute(view(name, p), key);
    const char* const equals = skipBlanks(p, end_);
    if (equals == end_ || *equals != '=') {
        tag_.add(attribute, view(p, p));
        return equals;
    }
    p = skipBlanks(equals + 1, end_);
    if (p == end_) {
        return end_;
    }
    if (*p == '"' || *p == '\'') {
        const char* const close = find(p + 1, end_, *p);
        tag_.add(attribute, view(p + 1, close));
        return close == end_ ? end_ : close + 1;
    }
    const char* value = p;
    while (p != end_ && !isBlank(*p) && *p != '>') {
        ++p;
    }
    tag_.add(attribute, view(value, p));
    return p;
}

/// The place behind markup that is not a tag; its "<" stands before p.
const char* Tokenizer::afterMarkup(const char* p) {
    if (*p == '!') {
        return afterDeclaration(p + 1);
    }
    if (*p == '?') {
        return afterInstruction(p + 1);
    }
    if (*p == '/' && p + 1 != end_) {
        return behind(p + 1, end_, ">");
    }
    return p;
}

const char* Tokenizer::afterDeclaration(const char* p) const {
    const std::string_view text = view(p, end_);
    if (text.starts_with("--")) {
        return afterComment(p + 2, end_);
    }
    if (cdata_ && text.starts_with("[CDATA[")) {
        return behind(p + 7, end_, "]]>");
    }
    return behind(p, end_, ">");
}

const char* Tokenizer::afterInstruction(const char* p) {
    // Browsers end "<?" at the first ">", which is in the middle of most PHP code.
    const std::string_view text = view(p, end_);
    const bool php = startsIgnoringCase(text, "php") || text.starts_with("=");
    if ((php || syntax_ == Syntax::Xml) && phpEnds_) {
        const char* const after = behind(p, end_, "?>");
        phpEnds_ = after != end_;
        return after;
    }
    return php ? end_ : behind(p, end_, ">");
}

std::string_view Tokenizer::skipRawText(Element element) {
    if (!hasRawText(element)) {
        return {};
    }
    const std::string_view text = view(at_, end_);
    const std::string_view raw = text.substr(0, rawTextLength(text, element));
    at_ += raw.size();
    return raw;
}

} // namespace quillmark::web

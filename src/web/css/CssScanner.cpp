#include "web/css/CssScanner.h"

#include "web/css/CssEscapes.h"
#include "web/text/Ascii.h"

#include <algorithm>

namespace quillmark::web {

namespace {

bool isLineEnd(char c) {
    return c == '\n' || c == '\r' || c == '\f';
}

bool isNameCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '-' || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// What an address without quotes may hold only behind a "\".
bool breaksUnquoted(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return c == '"' || c == '\'' || c == '(' || byte <= 0x08 || byte == 0x0B ||
           (byte >= 0x0E && byte <= 0x1F) || byte == 0x7F;
}

std::size_t skipBlanks(std::string_view css, std::size_t at) {
    while (at < css.size() && isBlank(css[at])) {
        ++at;
    }
    return at;
}

} // namespace

bool CssScanner::next() {
    while (at_ < css_.size()) {
        if (takeToken()) {
            return true;
        }
    }
    return false;
}

/// Takes one token; true if it is an address.
bool CssScanner::takeToken() {
    const char c = css_[at_];
    if (isNameCharacter(c) || (c == '\\' && at_ + 1 < css_.size() && !isLineEnd(css_[at_ + 1]))) {
        const std::string_view name = readName();
        const bool function = at_ < css_.size() && css_[at_] == '(' && !isDigit(c);
        return function && takeFunction(unescaped(name));
    }
    switch (c) {
    case '"':
    case '\'':
        return takeString();
    case '/':
        skipComment();
        return false;
    case '#':
        ++at_;
        readName();
        return false;
    case '@':
        takeAtRule();
        return false;
    default:
        ++at_;
        takeBracket(c);
        return false;
    }
}

/// A string is an address in an @import rule and directly in image-set(). Deeper inside that, as in
/// type("image/png"), it is not.
bool CssScanner::takeString() {
    const std::optional<std::string_view> raw = readString();
    if (!raw) {
        return false;
    }
    if (rule_ == Rule::Import) {
        return take(*raw, Attribute::CssImport);
    }
    return imageSet_ != 0 && imageSet_ == depth_ && take(*raw, Attribute::CssImageSet);
}

/// Goes on behind the "(" of a function.
bool CssScanner::takeFunction(std::string_view name) {
    ++at_;
    const bool url = equalIgnoringCase(name, "url");
    if (!url && !equalIgnoringCase(name, "src")) {
        ++depth_;
        if (imageSet_ == 0 && (equalIgnoringCase(name, "image-set") ||
                               equalIgnoringCase(name, "-webkit-image-set"))) {
            imageSet_ = depth_;
        }
        return false;
    }
    at_ = skipBlanks(css_, at_);
    if (at_ < css_.size() && (css_[at_] == '"' || css_[at_] == '\'')) {
        ++depth_;
        const std::optional<std::string_view> raw = readString();
        return raw && take(*raw, url ? Attribute::CssUrl : Attribute::CssSrc);
    }
    if (url) {
        return takeUnquoted();
    }
    ++depth_;
    return false;
}

/// Takes an address without quotes up to its ")".
bool CssScanner::takeUnquoted() {
    const std::size_t start = at_;
    while (at_ < css_.size() && css_[at_] != ')' && !isBlank(css_[at_])) {
        if (breaksUnquoted(css_[at_])) {
            skipBadUrl();
            return false;
        }
        at_ = css_[at_] == '\\' ? afterEscape(css_, at_) : at_ + 1;
    }
    const std::string_view raw = css_.substr(start, at_ - start);
    at_ = skipBlanks(css_, at_);
    if (at_ < css_.size() && css_[at_] != ')') {
        skipBadUrl();
        return false;
    }
    at_ = std::min(at_ + 1, css_.size());
    return take(raw, Attribute::CssUrl);
}

void CssScanner::takeBracket(char bracket) {
    if (bracket == '(') {
        ++depth_;
    } else if (bracket == ')') {
        imageSet_ = imageSet_ == depth_ ? 0 : imageSet_;
        depth_ -= depth_ > 0 ? 1 : 0;
    } else if (bracket == ';' || bracket == '{' || bracket == '}') {
        // Whatever was left open by mistake ends here, so that one mistake hides no more than a
        // rule.
        rule_ = Rule::None;
        depth_ = 0;
        imageSet_ = 0;
    }
}

void CssScanner::takeAtRule() {
    ++at_;
    const std::string_view name = unescaped(readName());
    if (equalIgnoringCase(name, "import")) {
        rule_ = Rule::Import;
    } else if (equalIgnoringCase(name, "namespace")) {
        rule_ = Rule::Namespace;
    }
}

void CssScanner::skipComment() {
    if (css_.substr(at_, 2) != "/*") {
        ++at_;
        return;
    }
    const std::size_t end = css_.find("*/", at_ + 2);
    at_ = end == std::string_view::npos ? css_.size() : end + 2;
}

/// Passes over what is left of a bad url() up to its ")", as browsers do (CSS Syntax, 4.3.14).
void CssScanner::skipBadUrl() {
    while (at_ < css_.size() && css_[at_] != ')') {
        at_ = css_[at_] == '\\' ? afterEscape(css_, at_) : at_ + 1;
    }
    at_ = std::min(at_ + 1, css_.size());
}

/// The string that begins at at_, without its quotes; nothing if a line ends before it does.
std::optional<std::string_view> CssScanner::readString() {
    const char quote = css_[at_];
    const std::size_t start = ++at_;
    while (at_ < css_.size() && css_[at_] != quote) {
        if (isLineEnd(css_[at_])) {
            return std::nullopt;
        }
        at_ = css_[at_] == '\\' ? afterEscape(css_, at_) : at_ + 1;
    }
    const std::string_view raw = css_.substr(start, at_ - start);
    at_ = std::min(at_ + 1, css_.size());
    return raw;
}

std::string_view CssScanner::readName() {
    const std::size_t start = at_;
    while (at_ < css_.size() && (isNameCharacter(css_[at_]) || css_[at_] == '\\')) {
        at_ = css_[at_] == '\\' ? afterEscape(css_, at_) : at_ + 1;
    }
    return css_.substr(start, at_ - start);
}

bool CssScanner::take(std::string_view raw, Attribute kind) {
    if (rule_ == Rule::Namespace) {
        return false; // @namespace gives a name that only looks like an address.
    }
    address_ = unescaped(raw);
    if (address_.empty() || address_[0] == '#') {
        return false;
    }
    offset_ = static_cast<std::size_t>(raw.data() - css_.data());
    kind_ = rule_ == Rule::Import ? Attribute::CssImport : kind;
    rule_ = Rule::None;
    return true;
}

std::string_view CssScanner::unescaped(std::string_view raw) {
    if (raw.find('\\') == std::string_view::npos) {
        return raw;
    }
    char* const start = texts_.allocate(unescapedBound(raw));
    const char* const end = unescapeCss(raw, start);
    const auto size = static_cast<std::size_t>(end - start);
    texts_.shrinkLast(size);
    return {start, size};
}

} // namespace quillmark::web

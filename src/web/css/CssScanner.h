#pragma once

#include "web/page/Names.h"
#include "web/text/TextArena.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmark::web {

/// Goes through the addresses in CSS (CSS Syntax, section 4): those of url() and src(), the strings
/// in image-set(), and what @import names. Empty addresses and fragments alone, "url(#x)", are left
/// out.
class CssScanner {
public:
    CssScanner(std::string_view css, TextArena& texts) : css_(css), texts_(texts) {}

    /// Moves on to the next address; false at the end.
    bool next();
    /// The address, with its escapes decoded.
    std::string_view address() const { return address_; }
    /// Where the address begins, in bytes, 0-based.
    std::size_t offset() const { return offset_; }
    /// How it is given: CssUrl, CssSrc, CssImageSet or CssImport.
    Attribute kind() const { return kind_; }

private:
    enum class Rule { None, Import, Namespace };

    bool takeToken();
    bool takeString();
    bool takeFunction(std::string_view name);
    bool takeUnquoted();
    void takeBracket(char bracket);
    void takeAtRule();
    void skipComment();
    void skipBadUrl();
    std::optional<std::string_view> readString();
    std::string_view readName();
    bool take(std::string_view raw, Attribute kind);
    std::string_view unescaped(std::string_view raw);

    std::string_view css_;
    TextArena& texts_;
    std::size_t at_ = 0;
    Rule rule_ = Rule::None;   ///< The rule that the next address belongs to.
    std::size_t depth_ = 0;    ///< How many parentheses are open.
    std::size_t imageSet_ = 0; ///< The depth inside an open image-set(); 0 without one.
    std::string_view address_;
    std::size_t offset_ = 0;
    Attribute kind_ = Attribute::CssUrl;
};

} // namespace quillmark::web

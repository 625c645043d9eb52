#include "web/html/RawText.h"

#include "web/page/PageContent.h"
#include "web/text/Ascii.h"

#include <algorithm>
#include <utility>

namespace quillmark::web {

namespace {

/// Whether `name` stands at `at`, followed by what ends the name of a tag.
bool hasName(std::string_view text, std::size_t at, std::string_view name) {
    if (!startsIgnoringCase(text.substr(at), name) || at + name.size() >= text.size()) {
        return false;
    }
    const char next = text[at + name.size()];
    return isBlank(next) || next == '/' || next == '>';
}

bool isEndTag(std::string_view text, std::size_t at, std::string_view name) {
    return at + 1 < text.size() && text[at + 1] == '/' && hasName(text, at + 2, name);
}

/// The text of a script. Between "<!--" and "-->" a "<script>" hides the next "</script>": old
/// pages wrap their scripts in comments and write scripts from there.
class ScriptText {
public:
    explicit ScriptText(std::string_view text) : text_(text) {}

    std::size_t length() {
        for (std::size_t at = text_.find('<'); at != std::string_view::npos;
             at = text_.find('<', at + 1)) {
            leaveEscape(at);
            if (isEndTag(text_, at, "script") && !std::exchange(doubleEscaped_, false)) {
                return at;
            }
            if (escapeEnd_ == NotEscaped) {
                enterEscape(at);
            } else if (hasName(text_, at + 1, "script")) {
                doubleEscaped_ = true;
            }
        }
        return text_.size();
    }

private:
    static constexpr std::size_t NotEscaped = 0;

    void leaveEscape(std::size_t at) {
        if (escapeEnd_ <= at) {
            escapeEnd_ = NotEscaped;
            doubleEscaped_ = false;
        }
    }

    void enterEscape(std::size_t at) {
        if (text_.substr(at, 4) == "<!--") {
            // The dashes of "<!--" may be those of "-->".
            const std::size_t end = text_.find("-->", at + 2);
            escapeEnd_ = end == std::string_view::npos ? end : end + 3;
        }
    }

    std::string_view text_;
    std::size_t escapeEnd_ = NotEscaped; ///< Behind the "-->" of the escape that holds.
    bool doubleEscaped_ = false;
};

} // namespace

bool hasRawText(Element element) {
    switch (element) {
    case Element::Iframe:
    case Element::Noembed:
    case Element::Noframes:
    case Element::Plaintext:
    case Element::Script:
    case Element::Style:
    case Element::Textarea:
    case Element::Title:
    case Element::Xmp:
        return true;
    default:
        return false;
    }
}

std::size_t rawTextLength(std::string_view text, Element element) {
    if (element == Element::Script) {
        return ScriptText(text).length();
    }
    if (element == Element::Plaintext) {
        return text.size();
    }
    const std::string_view name = placeName(placeOf(element, Attribute::Other)).element;
    std::size_t at = text.find("</");
    while (at != std::string_view::npos && !isEndTag(text, at, name)) {
        at = text.find("</", at + 2);
    }
    return std::min(at, text.size());
}

} // namespace quillmark::web

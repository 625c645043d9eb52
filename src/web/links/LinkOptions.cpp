#include "web/links/LinkOptions.h"

#include "base/Failure.h"
#include "web/links/LinkAddress.h"
#include "web/text/Ascii.h"

#include <algorithm>
#include <string_view>

namespace quillmark::web {

namespace {

/// A token (RFC 9110, section 5.6.2).
bool isName(std::string_view text) {
    constexpr std::string_view Marks = "!#$%&'*+-.^_`|~";
    return !text.empty() && std::all_of(text.begin(), text.end(), [=](char c) {
        return isLetter(c) || isDigit(c) || Marks.find(c) != std::string_view::npos;
    });
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

HeaderRule headerRuleOf(const std::string& text) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    const std::string line = text.substr(std::min(blank + 1, text.size()));
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string_view value =
        withoutOuterBlanks(std::string_view(line).substr(std::min(colon + 1, line.size())));
    if (!linkAddressOf(text.substr(0, blank), "") ||
        !isName(std::string_view(line).substr(0, colon)) || value.empty() ||
        std::any_of(line.begin(), line.end(), isControl)) {
        // Without the header itself, which may hold a password.
        throw invalidValue(
            "a header is written as 'https://www.site.example/ NAME: VALUE', not \"" +
            text.substr(0, blank) + " ...\"");
    }
    return {text.substr(0, blank), line};
}

} // namespace quillmark::web

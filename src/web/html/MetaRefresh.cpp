#include "web/html/MetaRefresh.h"

#include "web/text/Ascii.h"

#include <algorithm>

namespace quillmark::web {

namespace {

template <class Is> std::string_view skip(std::string_view text, Is is) {
    const auto* const first = std::find_if_not(text.begin(), text.end(), is);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

/// What follows "url" and "=", if the text begins with them; otherwise the whole text.
std::string_view afterUrlWord(std::string_view text) {
    if (!startsIgnoringCase(text, "url")) {
        return text;
    }
    const std::string_view rest = skip(text.substr(3), isBlank);
    return rest.starts_with("=") ? skip(rest.substr(1), isBlank) : text;
}

} // namespace

std::string_view refreshAddress(std::string_view content) {
    // A number comes first, then a separator, and only then the address.
    const std::string_view time = skip(content, isBlank);
    std::string_view rest = skip(time, [](char c) { return isDigit(c) || c == '.'; });
    if (rest.size() == time.size() || rest.empty() ||
        (rest[0] != ';' && rest[0] != ',' && !isBlank(rest[0]))) {
        return {};
    }
    rest = skip(rest, isBlank);
    if (rest.starts_with(";") || rest.starts_with(",")) {
        rest = skip(rest.substr(1), isBlank);
    }
    rest = afterUrlWord(rest);
    if (rest.starts_with("'") || rest.starts_with("\"")) {
        return rest.substr(1, rest.find(rest[0], 1) - 1);
    }
    return rest;
}

} // namespace quillmark::web

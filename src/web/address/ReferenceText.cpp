#include "web/address/ReferenceText.h"

#include "web/text/Ascii.h"

#include <algorithm>

namespace quillmark::web {

namespace {

bool isLineBreak(char c) {
    return c == '\t' || c == '\n' || c == '\r';
}

} // namespace

std::string_view cleanedReference(std::string_view text, std::string& cleaned) {
    while (!text.empty() && isBlankOrControl(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlankOrControl(text.back())) {
        text.remove_suffix(1);
    }
    if (std::none_of(text.begin(), text.end(), isLineBreak)) {
        return text;
    }
    cleaned = text;
    std::erase_if(cleaned, isLineBreak);
    return cleaned;
}

std::optional<std::string_view> cutFragment(std::string_view& text) {
    const std::size_t hash = text.find('#');
    if (hash == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view fragment = text.substr(hash + 1);
    text = text.substr(0, hash);
    return fragment.substr(0, fragment.find(":~:"));
}

bool isTopOfPage(std::string_view fragment) {
    return fragment.empty() || equalIgnoringCase(fragment, "top");
}

bool isRoute(std::string_view fragment) {
    return fragment.starts_with('/') || fragment.starts_with("!/");
}

} // namespace quillmark::web

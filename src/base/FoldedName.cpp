#include "base/FoldedName.h"

#include "base/UpperCase.h"

#include <cstdlib>
#include <memory>
#include <optional>

#include <utf8proc.h>

namespace quillmark {

namespace {

struct FreeText {
    void operator()(utf8proc_uint8_t* text) const { std::free(text); } // NOLINT: utf8proc's malloc
};

/// Nothing if the name is not valid UTF-8.
std::optional<std::string> mapped(std::string_view name, int options) {
    utf8proc_uint8_t* text = nullptr;
    const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(name.data()),
                                     static_cast<utf8proc_ssize_t>(name.size()), &text,
                                     static_cast<utf8proc_option_t>(options));
    const std::unique_ptr<utf8proc_uint8_t, FreeText> owner(text);
    if (length < 0) {
        return std::nullopt;
    }
    return std::string(text, text + length);
}

std::string lowerAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    }
    return result;
}

} // namespace

std::string foldedName(std::string_view name) {
    // Nearly all names are ASCII, which needs no look at the Unicode tables.
    if (isAscii(name)) {
        return lowerAscii(name);
    }
    auto folded = mapped(name, UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
    return folded ? *std::move(folded) : lowerAscii(name);
}

std::string composedName(std::string_view name) {
    if (isAscii(name)) {
        return std::string(name);
    }
    auto composed = mapped(name, UTF8PROC_STABLE | UTF8PROC_COMPOSE);
    return composed ? *std::move(composed) : std::string(name);
}

} // namespace quillmark

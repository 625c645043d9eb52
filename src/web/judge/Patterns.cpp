#include "web/judge/Patterns.h"

#include "base/Failure.h"

#include <algorithm>

#include <re2/re2.h>

namespace quillmark::web {

Patterns::Patterns(const std::vector<std::string>& texts) {
    // Paths need not be UTF-8: as Latin-1 every byte is a character.
    for (const std::string& text : texts) {
        RE2::Options options(RE2::Quiet);
        options.set_encoding(RE2::Options::EncodingLatin1);
        auto pattern = std::make_unique<RE2>(text, options);
        if (!pattern->ok()) {
            throw invalidValue("\"" + text + "\" is not a regular expression: " + pattern->error());
        }
        patterns_.push_back(std::move(pattern));
    }
}

Patterns::~Patterns() = default;

bool Patterns::match(std::string_view text) const {
    return std::any_of(patterns_.begin(), patterns_.end(), [text](const auto& pattern) {
        return RE2::PartialMatch(re2::StringPiece(text.data(), text.size()), *pattern);
    });
}

} // namespace quillmark::web

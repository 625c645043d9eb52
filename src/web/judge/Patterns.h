#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace re2 {
class RE2;
}

namespace quillmark::web {

/// Regular expressions (RE2). A text matches if one of them is found anywhere in it. Several
/// threads may ask at once.
class Patterns {
public:
    /// Throws a Failure that names the first text that is not a regular expression.
    explicit Patterns(const std::vector<std::string>& texts);
    ~Patterns();
    Patterns(const Patterns&) = delete;
    Patterns& operator=(const Patterns&) = delete;

    bool empty() const { return patterns_.empty(); }
    /// Whether one of the patterns is found in the text.
    bool match(std::string_view text) const;

private:
    std::vector<std::unique_ptr<re2::RE2>> patterns_;
};

} // namespace quillmark::web

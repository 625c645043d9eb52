#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

/// A piece of a line: what comes before a place, and what begins there. Both are empty if the line
/// can no longer be read.
struct Excerpt {
    std::string before;
    std::string after;
};

/// The lines of a page on this computer, as a check with the web rules counts them.
class SourceLines {
public:
    /// Reads the file (full path in "/" form). One that cannot be read has no lines.
    explicit SourceLines(const std::string& file);

    /// The text around a place (1-based line; 1-based column, in characters): UTF-8, short enough
    /// to look at, with "…" where the line goes on. Places in rising order are found fastest.
    Excerpt around(std::uint32_t line, std::uint32_t column);

private:
    bool goTo(std::uint32_t line);
    std::size_t endOfLine() const;

    std::string bytes_;
    std::string decoded_;
    std::string_view text_;
    std::uint32_t line_ = 1;
    std::size_t lineStart_ = 0;
};

} // namespace quillmark

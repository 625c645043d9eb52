#pragma once

#include <stdexcept>
#include <string>

namespace quillmark {

/// What is wrong in a line of a file with options.
class ConfigTextError : public std::runtime_error {
public:
    ConfigTextError(int line, const std::string& text) : std::runtime_error(text), line_(line) {}
    int line() const { return line_; } ///< 1-based.

private:
    int line_;
};

/// TOML as CLI11's reader takes it: an array stands in one line, without a comma at its end, and
/// comments are gone, which the reader would look for in quotes, too. Throws a ConfigTextError for
/// quotes and brackets that do not end, and for a "\" in double quotes: TOML would have it begin an
/// escape, the reader takes it as it is.
std::string readableToml(const std::string& text);

} // namespace quillmark

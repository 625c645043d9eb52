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

/// Turns TOML into what CLI11's reader understands: each array in one line, without a comma at its
/// end, and no comments, which the reader would see in quotes too. Throws a ConfigTextError for
/// quotes and brackets that are not closed, and for a "\" in double quotes: in TOML it begins an
/// escape, which the reader would take literally.
std::string readableToml(const std::string& text);

} // namespace quillmark

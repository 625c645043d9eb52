#pragma once

#include <cstdint>
#include <string_view>

namespace quillmark {

/// Reads the bytes of a settings file by position. A field ends at a "," or at the end of the line
/// (CR LF, LF or CR); blanks before it are skipped; a blank line is an empty field. A field that
/// opens with a double quote holds everything up to the closing one, commas and line ends too. The
/// results are views of the bytes given. Every function throws unexpectedEndOfFile() if nothing is
/// left.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : rest_(bytes) {}

    /// Whether nothing is left to read.
    bool atEnd() const { return rest_.empty(); }
    /// The rest of the line, commas and quotes as they stand.
    std::string_view readLine();
    /// What follows the first "=" of the next field, or all of a field without "=".
    std::string_view ReadTextValue();
    /// The number that ReadTextValue() begins with, halves rounded to even; 0 without digits.
    /// Throws overflow() when it does not fit.
    std::int16_t ReadNumberValue();

private:
    std::string_view readField();
    std::string_view readQuotedField();
    std::string_view takeUpTo(std::string_view delimiters);
    void skipBlanks();
    void skipDelimiter();

    std::string_view rest_;
};

} // namespace quillmark

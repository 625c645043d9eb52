#include "settings/FieldReader.h"

#include "base/Failure.h"
#include "base/Numbers.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr std::string_view LineEnds = "\r\n";
constexpr std::string_view FieldEnds = ",\r\n";

void requireMore(std::string_view rest) {
    if (rest.empty()) {
        throw unexpectedEndOfFile();
    }
}

} // namespace

std::string_view FieldReader::readLine() {
    requireMore(rest_);
    const std::string_view line = takeUpTo(LineEnds);
    skipDelimiter();
    return line;
}

std::string_view FieldReader::ReadTextValue() {
    const std::string_view field = readField();
    const std::size_t equals = field.find('=');
    return equals == std::string_view::npos ? field : field.substr(equals + 1);
}

std::int16_t FieldReader::ReadNumberValue() {
    return toInt16(leadingNumber(ReadTextValue()));
}

std::string_view FieldReader::readField() {
    requireMore(rest_);
    skipBlanks();
    const std::string_view field = rest_.starts_with('"') ? readQuotedField() : takeUpTo(FieldEnds);
    skipDelimiter();
    return field;
}

std::string_view FieldReader::readQuotedField() {
    rest_.remove_prefix(1);
    // Without a closing quote this takes the rest of the file.
    const std::string_view field = takeUpTo("\"");
    rest_.remove_prefix(std::min<std::size_t>(1, rest_.size()));
    skipBlanks();
    return field;
}

std::string_view FieldReader::takeUpTo(std::string_view delimiters) {
    const std::string_view taken =
        rest_.substr(0, std::min(rest_.find_first_of(delimiters), rest_.size()));
    rest_.remove_prefix(taken.size());
    return taken;
}

void FieldReader::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

void FieldReader::skipDelimiter() {
    // CR LF is one line end: taken for two, it would add an empty field.
    if (rest_.starts_with("\r\n")) {
        rest_.remove_prefix(2);
    } else if (!rest_.empty() && FieldEnds.find(rest_.front()) != std::string_view::npos) {
        rest_.remove_prefix(1);
    }
}

} // namespace quillmark

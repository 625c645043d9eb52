#include "report/page/SourceLines.h"

#include "web/html/HtmlReader.h"
#include "web/text/Decoding.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace quillmark {

namespace {

// In characters: what fits into a line or two of the page.
constexpr std::size_t MostBefore = 60;
constexpr std::size_t MostAfter = 160;
constexpr std::string_view Ellipsis = "…";

std::string readAll(const std::string& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) {
        return {}; // Something else there now, such as a pipe, could keep us waiting.
    }
    std::string bytes(size, '\0');
    std::ifstream in(file, std::ios::binary);
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

/// Where each kind of page declares its encoding.
web::LabelFinder labelFinder(std::string_view file) {
    if (file.ends_with(".css")) {
        return web::cssCharset;
    }
    return file.ends_with(".svg") || file.ends_with(".xml") ? web::xmlEncoding
                                                            : web::declaredCharset;
}

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// The position `count` characters after `from`, or the end of the text.
std::size_t forward(std::string_view text, std::size_t from, std::size_t count) {
    for (; count > 0 && from < text.size(); --count) {
        do {
            ++from;
        } while (from < text.size() && continuesCharacter(text[from]));
    }
    return from;
}

/// The position `count` characters before `from`, or 0.
std::size_t backward(std::string_view text, std::size_t from, std::size_t count) {
    for (; count > 0 && from > 0; --count) {
        do {
            --from;
        } while (from > 0 && continuesCharacter(text[from]));
    }
    return from;
}

} // namespace

SourceLines::SourceLines(const std::string& file) : bytes_(readAll(file)) {
    if (!bytes_.empty()) {
        text_ = web::decodeFile(bytes_, labelFinder(file), decoded_).text;
    }
}

Excerpt SourceLines::around(std::uint32_t line, std::uint32_t column) {
    if (!goTo(line)) {
        return {};
    }
    const std::string_view all = text_.substr(lineStart_, endOfLine() - lineStart_);
    const std::size_t at = forward(all, 0, column - 1);
    const std::size_t first = std::max(all.find_first_not_of(" \t"), backward(all, at, MostBefore));
    const std::size_t end = forward(all, at, MostAfter);
    Excerpt excerpt;
    if (first < at) {
        const bool isCut = all.find_first_not_of(" \t") < first;
        excerpt.before.append(isCut ? Ellipsis : "").append(all.substr(first, at - first));
    }
    excerpt.after.append(all.substr(at, end - at)).append(end < all.size() ? Ellipsis : "");
    return excerpt;
}

/// Moves to a 1-based line; false if there is none.
bool SourceLines::goTo(std::uint32_t line) {
    if (line < line_) {
        line_ = 1;
        lineStart_ = 0;
    }
    for (; line_ < line; ++line_) {
        const std::size_t end = endOfLine();
        if (end == text_.size()) {
            return false;
        }
        lineStart_ = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
    }
    return line > 0;
}

std::size_t SourceLines::endOfLine() const {
    return std::min(text_.find_first_of("\r\n", lineStart_), text_.size());
}

} // namespace quillmark

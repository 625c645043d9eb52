#include "web/text/Decoding.h"

#include "web/text/Ascii.h"
#include "web/text/EncodingLabels.h"
#include "web/text/Utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iconv.h>
#include <memory>
#include <type_traits>

namespace quillmark::web {

namespace {

struct IconvCloser {
    void operator()(void* handle) const { iconv_close(handle); }
};

using Iconv = std::unique_ptr<std::remove_pointer_t<iconv_t>, IconvCloser>;

/// nullptr if the system does not know the encoding.
Iconv openIconv(const std::string& encoding) {
    iconv_t handle = iconv_open("UTF-8", encoding.c_str());
    return Iconv(std::equal_to<>()(handle, iconv_t(-1)) ? nullptr : handle); // NOLINT
}

/// Converts a text piece by piece. Where it is invalid, `unit` bytes become one U+FFFD.
void appendByIconv(std::string_view bytes, iconv_t handle, std::size_t unit, std::string& utf8) {
    std::array<char, 4096> piece{};
    auto* from = const_cast<char*>(bytes.data());
    std::size_t left = bytes.size();
    while (left > 0) {
        char* to = piece.data();
        std::size_t room = piece.size();
        const bool failed = iconv(handle, &from, &left, &to, &room) == static_cast<std::size_t>(-1);
        const int error = errno;
        utf8.append(piece.data(), to);
        if (failed && error != E2BIG) {
            utf8.append(ReplacementCharacter);
            const std::size_t skipped = std::min(unit, left);
            from += skipped;
            left -= skipped;
        }
    }
    // Some encodings hold a character back, since a combining mark could still change it.
    char* to = piece.data();
    std::size_t room = piece.size();
    iconv(handle, nullptr, nullptr, &to, &room);
    utf8.append(piece.data(), to);
}

Source decodeAs(std::string_view encoding, std::string_view bytes, std::string& decoded) {
    if (encoding == "UTF-8") {
        if (validUtf8Prefix(bytes) == bytes.size()) {
            return inspect(bytes);
        }
        appendUtf8(bytes, decoded);
        return inspect(decoded);
    }
    if (encoding != "WINDOWS-1252") {
        if (const Iconv handle = openIconv(std::string(encoding))) {
            appendByIconv(bytes, handle.get(), encoding.starts_with("UTF-16") ? 2 : 1, decoded);
            return inspect(decoded);
        }
    }
    appendWindows1252(bytes, decoded);
    return inspect(decoded);
}

} // namespace

Source decodeFile(std::string_view bytes, LabelFinder findLabel, std::string& decoded) {
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        return decodeAs("UTF-8", bytes.substr(3), decoded);
    }
    if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) {
        return decodeAs(bytes[0] == '\xFE' ? "UTF-16BE" : "UTF-16LE", bytes.substr(2), decoded);
    }
    // ASCII is the same in all encodings that a file can be in without a mark.
    const Source source = inspect(bytes);
    if (source.ascii) {
        return source;
    }
    const std::string_view declared = encodingOf(findLabel(bytes));
    if (!declared.empty()) {
        return decodeAs(declared, bytes, decoded);
    }
    const bool valid = validUtf8Prefix(bytes) == bytes.size();
    return decodeAs(valid ? "UTF-8" : "WINDOWS-1252", bytes, decoded);
}

std::string_view xmlEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) {
        return {};
    }
    const std::string_view declaration = bytes.substr(0, bytes.find('>'));
    std::size_t at = declaration.find("encoding");
    if (at == std::string_view::npos) {
        return {};
    }
    at = declaration.find_first_of("\"'", at);
    if (at == std::string_view::npos) {
        return {};
    }
    const std::size_t end = declaration.find(declaration[at], at + 1);
    return end == std::string_view::npos ? std::string_view()
                                         : declaration.substr(at + 1, end - at - 1);
}

std::string_view cssCharset(std::string_view bytes) {
    constexpr std::string_view Rule = "@charset \"";
    const std::string_view start = bytes.substr(0, 1024);
    const std::size_t end = start.find("\";", Rule.size());
    return start.starts_with(Rule) && end != std::string_view::npos
               ? start.substr(Rule.size(), end - Rule.size())
               : std::string_view();
}

} // namespace quillmark::web

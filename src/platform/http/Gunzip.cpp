#include "platform/http/Gunzip.h"

#include "platform/http/WebFailure.h"

#include <array>
#include <string_view>

#define ZLIB_CONST
#include <zlib.h>

namespace quillmark {

namespace {

class Inflation {
public:
    Inflation() { inflateInit2(&stream_, GzipWindow); }
    ~Inflation() { inflateEnd(&stream_); }
    Inflation(const Inflation&) = delete;
    Inflation& operator=(const Inflation&) = delete;

    void feed(std::string_view bytes) {
        stream_.next_in = reinterpret_cast<const Bytef*>(bytes.data());
        stream_.avail_in = static_cast<uInt>(bytes.size());
    }
    /// Returns the next part of the text; nothing if more input is needed.
    std::string_view next() {
        stream_.next_out = reinterpret_cast<Bytef*>(part_.data());
        stream_.avail_out = static_cast<uInt>(part_.size());
        const int code = inflate(&stream_, Z_NO_FLUSH);
        if (code != Z_OK && code != Z_STREAM_END && code != Z_BUF_ERROR) {
            throw noAnswerFromTheWeb("damaged gzip stream");
        }
        return {part_.data(), part_.size() - stream_.avail_out};
    }

private:
    static constexpr int GzipWindow = MAX_WBITS + 16;

    z_stream stream_{};
    std::array<char, 16384> part_{};
};

} // namespace

std::string gunzip(const Body& body, std::size_t limit) {
    Inflation inflation;
    std::string text;
    text.reserve(limit); // Only takes address space, and the text never moves.
    for (const std::string& piece : body.pieces()) {
        inflation.feed(piece);
        for (auto part = inflation.next(); !part.empty(); part = inflation.next()) {
            text.append(part.substr(0, limit - text.size()));
            if (text.size() == limit) {
                return text;
            }
        }
    }
    return text;
}

} // namespace quillmark

#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// Goes through the addresses of a srcset (WHATWG HTML, 4.8.4.3.10). Descriptors are passed over,
/// valid or not: browsers of tomorrow may understand one that they reject today.
class Srcset {
public:
    explicit Srcset(std::string_view value) : value_(value) {}

    /// Moves on to the next address; false at the end.
    bool next();
    std::string_view address() const { return value_.substr(start_, size_); }
    /// Where the address begins in the value, in bytes, 0-based.
    std::size_t offset() const { return start_; }

private:
    void skipDescriptors();

    std::string_view value_;
    std::size_t at_ = 0;
    std::size_t start_ = 0;
    std::size_t size_ = 0;
};

} // namespace quillmark::web

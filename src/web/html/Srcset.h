#pragma once

#include <cstddef>
#include <string_view>

namespace quillmark::web {

/// Goes through the addresses of a srcset (WHATWG HTML, 4.8.4.3.10). Descriptors are passed over,
/// valid or not: an address that a browser leaves out today it may take tomorrow.
class Srcset {
public:
    explicit Srcset(std::string_view value) : value_(value) {}

    /// Moves on to the next address; false at the end.
    bool next();
    std::string_view address() const { return value_.substr(start_, size_); }
    /// Where the address begins in the value, in bytes from 0.
    std::size_t offset() const { return start_; }

private:
    void skipDescriptors();

    std::string_view value_;
    std::size_t at_ = 0;
    std::size_t start_ = 0;
    std::size_t size_ = 0;
};

} // namespace quillmark::web

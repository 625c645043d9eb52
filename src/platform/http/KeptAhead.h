#pragma once

#include <cstddef>

namespace quillmark {

/// The bytes of bodies that arrived before they were asked for, against what they may take.
class KeptAhead {
public:
    explicit KeptAhead(std::size_t limit) : limit_(limit) {}

    bool full() const { return bytes_ >= limit_; }
    /// Counts the bytes, unless it is full already: one piece may lie across the limit.
    bool admit(std::size_t bytes) {
        if (full()) {
            return false;
        }
        bytes_ += bytes;
        return true;
    }
    void release(std::size_t bytes) { bytes_ -= bytes; }

private:
    std::size_t limit_;
    std::size_t bytes_ = 0;
};

} // namespace quillmark

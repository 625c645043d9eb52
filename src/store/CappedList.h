#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace quillmark {

/// Keeps the newest lines, indexed from 0. Unlike a result list it frees the memory of the lines
/// that go, so that it can grow for as long as the program runs.
class CappedList {
public:
    /// The most bytes that all lines take together; beyond that the oldest go. A message quotes its
    /// reference whole, even one of megabytes.
    static constexpr std::size_t LargestSize = std::size_t{16} * 1024 * 1024;

    /// Adds a copy of the line at the end. The line itself stays, however long it is.
    void Append(std::string_view line) {
        size_ += line.size();
        lines_.emplace_back(line);
        while (size_ > LargestSize && lines_.size() > 1) {
            RemoveFirst();
        }
    }
    /// Removes the oldest line; there must be one.
    void RemoveFirst() {
        size_ -= lines_.front().size();
        lines_.pop_front();
    }
    void Clear() {
        size_ = 0;
        lines_.clear();
    }
    int Count() const { return static_cast<int>(lines_.size()); }
    /// Line i, with 0 <= i < Count().
    std::string_view Line(int i) const { return lines_[static_cast<std::size_t>(i)]; }

private:
    std::deque<std::string> lines_;
    std::size_t size_ = 0;
};

} // namespace quillmark

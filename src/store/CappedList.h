#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace quillmark {

/// A short list of the newest lines, indexed from 0. Unlike a result list it gives the memory of
/// its oldest lines back, so that it can run for as long as the program does.
class CappedList {
public:
    void Append(std::string_view line) { lines_.emplace_back(line); }
    void RemoveFirst() { lines_.pop_front(); }
    void Clear() { lines_.clear(); }
    int Count() const { return static_cast<int>(lines_.size()); }
    /// Line i, with 0 <= i < Count().
    std::string_view Line(int i) const { return lines_[static_cast<std::size_t>(i)]; }

private:
    std::deque<std::string> lines_;
};

} // namespace quillmark

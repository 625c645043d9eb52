#pragma once

#include "store/TextStore.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace quillmark {

/// An ordered list of text lines (bytes), indexed from 0, in the order in which they were added. A
/// line stays where it is in memory until Clear(), whatever is added or removed, so a view of it
/// stays valid until then.
///
///     lines_  | kept | kept | gap | gap | kept | kept |      gapStart_ = 2, gapLength_ = 2
///     index      0      1                  2      3
///
/// Removed places gather in one gap that moves to the place of the next removal: a pass that walks
/// the list and removes lines here and there moves each line once at most.
class ResultList {
public:
    /// The number of lines at which a list ends the run that fills it.
    static constexpr int Maximum = 31000;

    ResultList();
    ResultList(const ResultList& other);
    ResultList& operator=(const ResultList& other);
    ~ResultList() = default;

    /// Adds a copy of the line at the end. A line that equals the last one takes no further memory.
    void Append(std::string_view line);
    /// Adds the line itself at the end: its bytes must outlive the list's contents.
    void AppendView(std::string_view line) { lines_.push_back(line); }
    /// Adds line i of another list without a copy: both lists share its bytes from then on.
    /// References may be megabytes long, and an invalid one stands in two lists.
    void AppendFrom(const ResultList& other, int i);
    /// Line i, with 0 <= i < Count().
    std::string_view Line(int i) const;
    int Count() const;
    /// Removes all lines and ends the life of their bytes, unless another list shares them.
    void Clear();
    /// Removes line i; the later lines move down by one.
    void Remove(int i);

private:
    using Bytes = std::shared_ptr<TextStore>;

    std::size_t place(int i) const;
    void borrow(const Bytes& bytes);
    void moveGapTo(std::size_t index);

    Bytes bytes_;
    std::vector<Bytes> borrowed_; ///< Of the lists whose lines this one shares.
    std::vector<std::string_view> lines_;
    std::size_t gapStart_ = 0;
    std::size_t gapLength_ = 0;
};

} // namespace quillmark

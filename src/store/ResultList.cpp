#include "store/ResultList.h"

#include <algorithm>
#include <cassert>

namespace quillmark {

ResultList::ResultList() : bytes_(std::make_shared<TextStore>()) {}

// A copy has bytes of its own, so that it stays valid when the other list is cleared.
ResultList::ResultList(const ResultList& other) : ResultList() {
    for (int i = 0; i < other.Count(); ++i) {
        Append(other.Line(i));
    }
}

ResultList& ResultList::operator=(const ResultList& other) {
    if (this != &other) {
        Clear();
        for (int i = 0; i < other.Count(); ++i) {
            Append(other.Line(i));
        }
    }
    return *this;
}

void ResultList::Append(std::string_view line) {
    // A ...From list names one page many times in a row.
    const bool repeated = !lines_.empty() && lines_.back() == line;
    lines_.push_back(repeated ? lines_.back() : bytes_->keep(line));
}

void ResultList::AppendFrom(const ResultList& other, int i) {
    borrow(other.bytes_);
    for (const Bytes& bytes : other.borrowed_) {
        borrow(bytes);
    }
    lines_.push_back(other.Line(i));
}

void ResultList::borrow(const Bytes& bytes) {
    if (std::find(borrowed_.begin(), borrowed_.end(), bytes) == borrowed_.end()) {
        borrowed_.push_back(bytes);
    }
}

std::string_view ResultList::Line(int i) const {
    return lines_[place(i)];
}

int ResultList::Count() const {
    return static_cast<int>(lines_.size() - gapLength_);
}

void ResultList::Clear() {
    lines_.clear();
    gapStart_ = 0;
    gapLength_ = 0;
    borrowed_.clear();
    // New bytes, since other lists may share the old ones.
    bytes_ = std::make_shared<TextStore>();
}

void ResultList::Remove(int i) {
    assert(i >= 0 && i < Count());
    moveGapTo(static_cast<std::size_t>(i));
    ++gapLength_;
}

std::size_t ResultList::place(int i) const {
    assert(i >= 0 && i < Count());
    const auto index = static_cast<std::size_t>(i);
    return index < gapStart_ ? index : index + gapLength_;
}

// Moves the lines between the old and the new place of the gap to its other side.
void ResultList::moveGapTo(std::size_t index) {
    if (gapLength_ == 0) {
        gapStart_ = index;
        return;
    }
    const auto at = [this](std::size_t offset) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(offset);
    };
    if (index > gapStart_) {
        std::copy(at(gapStart_ + gapLength_), at(index + gapLength_), at(gapStart_));
    } else {
        std::copy_backward(at(index), at(gapStart_), at(gapStart_ + gapLength_));
    }
    gapStart_ = index;
}

} // namespace quillmark

#include "store/ResultList.h"

#include <algorithm>
#include <cassert>

namespace quillmark {

ResultList::ResultList() : bytes_(std::make_unique<std::pmr::monotonic_buffer_resource>()) {}

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
    lines_.push_back(stored(line));
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
    bytes_->release();
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

std::string_view ResultList::stored(std::string_view line) {
    if (line.empty()) {
        return {};
    }
    auto* bytes = static_cast<char*>(bytes_->allocate(line.size(), 1));
    std::copy(line.begin(), line.end(), bytes);
    return {bytes, line.size()};
}

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

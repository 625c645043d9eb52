#include "web/html/Srcset.h"

#include "web/text/Ascii.h"

namespace quillmark::web {

bool Srcset::next() {
    while (at_ < value_.size() && (isBlank(value_[at_]) || value_[at_] == ',')) {
        ++at_;
    }
    start_ = at_;
    while (at_ < value_.size() && !isBlank(value_[at_])) {
        ++at_;
    }
    size_ = at_ - start_;
    if (size_ == 0) {
        return false;
    }
    if (value_[at_ - 1] != ',') {
        skipDescriptors();
        return true;
    }
    // Commas inside an address are part of it; those at its end are separators.
    while (value_[start_ + size_ - 1] == ',') {
        --size_;
    }
    return true;
}

void Srcset::skipDescriptors() {
    bool parentheses = false;
    for (; at_ < value_.size(); ++at_) {
        const char c = value_[at_];
        if (c == ',' && !parentheses) {
            return;
        }
        parentheses = c == '(' || (parentheses && c != ')');
    }
}

} // namespace quillmark::web

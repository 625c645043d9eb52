#include "web/text/TextArena.h"

#include <algorithm>
#include <cstring>

namespace quillmark::web {

namespace {

constexpr std::size_t BlockSize = 16384;

} // namespace

char* TextArena::allocate(std::size_t size) {
    while (block_ < blocks_.size() && blocks_[block_].size() - used_ < size) {
        ++block_;
        used_ = 0;
    }
    if (block_ == blocks_.size()) {
        blocks_.emplace_back(std::max(size, BlockSize));
    }
    lastStart_ = used_;
    used_ += size;
    return blocks_[block_].data() + lastStart_;
}

std::string_view TextArena::keep(std::string_view text) {
    char* copy = allocate(text.size());
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}

void TextArena::clear() {
    // One huge page must not hold its memory for the rest of the run.
    std::erase_if(blocks_, [](const std::vector<char>& block) { return block.size() > BlockSize; });
    block_ = 0;
    used_ = 0;
    lastStart_ = 0;
}

} // namespace quillmark::web

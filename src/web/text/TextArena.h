#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace quillmark::web {

/// Memory for texts that live as long as a page's content does. clear() keeps it for the next page.
class TextArena {
public:
    /// Room for `size` bytes. The caller may fill it and keep less by shrinkLast().
    char* allocate(std::size_t size);
    /// Gives back what the last allocate() took beyond `size` bytes.
    void shrinkLast(std::size_t size) { used_ = lastStart_ + size; }
    /// A copy that lives until clear().
    std::string_view keep(std::string_view text);
    void clear();

private:
    std::vector<std::vector<char>> blocks_; ///< None of them ever grows.
    std::size_t block_ = 0;                 ///< Index of the block in use.
    std::size_t used_ = 0;                  ///< Bytes in use of that block.
    std::size_t lastStart_ = 0;
};

} // namespace quillmark::web

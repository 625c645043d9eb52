#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// A body as it arrives, in pieces: one growing text would need its size twice each time that it
/// moves, and leave holes in the memory when many grow side by side.
class Body {
public:
    void append(std::string_view bytes);
    std::size_t size() const { return size_; }
    /// None of them is empty.
    const std::vector<std::string>& pieces() const { return pieces_; }

private:
    static constexpr std::size_t PieceSize = 16384;

    std::vector<std::string> pieces_;
    std::size_t size_ = 0;
};

/// The body in one text.
std::string joined(const Body& body);

} // namespace quillmark

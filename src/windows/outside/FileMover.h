#pragma once

#include <filesystem>
#include <string_view>

namespace quillmark {

/// Moves files of the local disk.
class FileMover {
public:
    virtual ~FileMover() = default;

    /// Moves a file (full path in "\" form) to a path in the machine's own form, over an existing
    /// file too. The original is deleted only when the copy is complete and was read back, so that
    /// nothing is lost whatever fails. Throws a Failure, the original untouched, when that is not
    /// possible, and when both names are the same file.
    virtual void move(std::string_view source, const std::filesystem::path& target) = 0;
};

} // namespace quillmark

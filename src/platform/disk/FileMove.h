#pragma once

#include <filesystem>

namespace quillmark {

/// Moves a plain file to another path, even over an existing file or to another disk. The original
/// is deleted only once the copy is complete, flushed to the disk and read back equal; the target
/// appears in one step. If that is not possible, or both paths are the same file, throws a Failure
/// and leaves the original and an earlier target untouched.
void moveFile(const std::filesystem::path& source, const std::filesystem::path& target);

} // namespace quillmark

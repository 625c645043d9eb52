#pragma once

#include <filesystem>

namespace quillmark {

/// Moves a plain file to another path, over an existing file too, also to another disk. The
/// original is deleted only when the copy is complete, flushed to the disk and was read back equal;
/// the target appears in one step. Throws a Failure, with the original and an earlier target
/// untouched, when that is not possible, and when both paths are the same file.
void moveFile(const std::filesystem::path& source, const std::filesystem::path& target);

} // namespace quillmark

#pragma once

#include <filesystem>
#include <string_view>

#include <sys/types.h>

namespace quillmark {

/// Puts a file with these bytes in the place of `file`, in one step: after a crash, a full disk or
/// any other failure there is the old file or the new one, never a part. A symbolic link there is
/// replaced, not followed. The process's umask narrows `mode`. Throws pathNotFound() when there is
/// no such folder, or another Failure.
void replaceFile(const std::filesystem::path& file, std::string_view bytes, mode_t mode);

} // namespace quillmark

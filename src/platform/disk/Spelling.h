#pragma once

#include <filesystem>

namespace quillmark {

/// The path as the disk spells it: each component that is not there, but differs from one that is
/// only in the case of ASCII letters, is replaced by that one (the first in byte order). Sites are
/// written for disks that do not tell the two apart. A path without such a match comes back as it
/// is.
std::filesystem::path onDiskSpelling(const std::filesystem::path& path);

} // namespace quillmark

#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>

namespace quillmark {

/// Keeps a program's own folder for one program at a time: two checks would overwrite each other's
/// working copy and so report each other's pages. The kernel ends the lock when the program
/// crashes.
class FolderLock {
public:
    explicit FolderLock(const std::filesystem::path& folder);

    /// Whether the folder is ours now.
    bool held() const { return held_; }

private:
    FileDescriptor folder_;
    bool held_;
};

} // namespace quillmark

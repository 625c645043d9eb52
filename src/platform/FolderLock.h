#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>

namespace quillmark {

/// Lets one program at a time use a program folder: two checks would overwrite each other's working
/// copy and report each other's pages. The kernel ends the lock even if the program crashes.
class FolderLock {
public:
    /// Tries to lock the folder, a path in the machine's own form; never waits.
    explicit FolderLock(const std::filesystem::path& folder);

    /// Whether the folder is ours.
    bool held() const { return held_; }

private:
    FileDescriptor folder_;
    bool held_;
};

} // namespace quillmark

#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>
#include <string_view>

#include <sys/types.h>

namespace quillmark {

/// A new file that is written under a temporary name and gets its real name once it is whole; it is
/// deleted if that never happens. Every step throws a Failure if the disk refuses it.
class TemporaryFile {
public:
    /// Creates it in `folder` under a temporary name, for writing and reading.
    TemporaryFile(const std::filesystem::path& folder, mode_t mode)
        : descriptor_(create(folder, mode)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const FileDescriptor& descriptor() const { return descriptor_; }

    /// Adds the bytes at the end.
    void write(std::string_view bytes);
    /// Waits until the disk has stored what was written.
    void flush();
    /// Gives it its real name, replacing a file that has it, and makes that survive a power cut
    /// where the file system can.
    void rename(const std::filesystem::path& file);

    /// Deletes what killed programs left half-written in `folder`: it may hold passwords. What
    /// cannot be deleted stays.
    static void removeAbandoned(const std::filesystem::path& folder);

private:
    FileDescriptor create(const std::filesystem::path& folder, mode_t mode);

    std::filesystem::path path_;
    FileDescriptor descriptor_;
    bool renamed_ = false;
};

/// Puts a file with these bytes in the place of `file`, in one step: after a crash, a full disk or
/// any other failure there is the old file or the new one, never a part of it. A symbolic link
/// there is replaced, not followed. The process's umask narrows `mode`. Throws pathNotFound() if
/// there is no such folder, or another Failure.
void replaceFile(const std::filesystem::path& file, std::string_view bytes, mode_t mode);

/// Deletes the file if there is one; a folder stays. A symbolic link is deleted, not what it leads
/// to. Throws a Failure if the disk refuses.
void deleteIfThere(const std::filesystem::path& file);

} // namespace quillmark

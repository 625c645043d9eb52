#pragma once

#include "platform/FileDescriptor.h"

#include <filesystem>
#include <string_view>

#include <sys/types.h>

namespace quillmark {

/// A new file that is written under a name of its own and gets its real one when it is whole;
/// deleted if it never does. Every step throws a Failure if the disk refuses it.
class TemporaryFile {
public:
    /// Created in `folder` under a name of its own, for writing and reading.
    TemporaryFile(const std::filesystem::path& folder, mode_t mode)
        : descriptor_(create(folder, mode)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const FileDescriptor& descriptor() const { return descriptor_; }

    void write(std::string_view bytes);
    /// Brings what was written to the disk.
    void flush();
    /// Gives it its name, in the place of a file that has it, and makes that outlast a power cut
    /// where the file system can.
    void rename(const std::filesystem::path& file);

    /// Deletes what programs that were killed had begun to write in `folder`: it may hold
    /// passwords. What cannot be deleted stays.
    static void removeAbandoned(const std::filesystem::path& folder);

private:
    FileDescriptor create(const std::filesystem::path& folder, mode_t mode);

    std::filesystem::path path_;
    FileDescriptor descriptor_;
    bool renamed_ = false;
};

/// Puts a file with these bytes in the place of `file`, in one step: after a crash, a full disk or
/// any other failure there is the old file or the new one, never a part. A symbolic link there is
/// replaced, not followed. The process's umask narrows `mode`. Throws pathNotFound() when there is
/// no such folder, or another Failure.
void replaceFile(const std::filesystem::path& file, std::string_view bytes, mode_t mode);

/// Deletes the file if there is one; a folder stays. A symbolic link is deleted, not what it leads
/// to. Throws a Failure when the disk refuses.
void deleteIfThere(const std::filesystem::path& file);

} // namespace quillmark

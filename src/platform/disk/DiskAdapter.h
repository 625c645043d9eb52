#pragma once

#include "platform/FileDescriptor.h"
#include "platform/disk/AlternatingFile.h"
#include "platform/disk/Spelling.h"
#include "run/LocalDisk.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include <sys/types.h>

namespace quillmark {

/// The local disk of this machine.
class DiskAdapter : public LocalDisk {
public:
    FolderListing list(std::string_view folder) override;
    int CopyFileBinary(std::string_view source, std::string_view target,
                       const std::function<bool()>& goOn) override;
    void read(std::string_view file,
              const std::function<bool(std::string_view block)>& take) override;
    void deleteIfThere(std::string_view file) override;
    void moveFile(std::string_view source, const std::filesystem::path& target) override;
    void endRun() override;

private:
    /// A whole number of the blocks that copies are made of.
    using Buffer = std::array<char, std::size_t{64} * 1025>;

    FileDescriptor openInAnySpelling(const std::string& file);
    std::optional<off_t> copyPadded(const FileDescriptor& source, const FileDescriptor& to,
                                    const std::function<bool()>& goOn);
    static std::optional<std::size_t> readBlock(const FileDescriptor& file, Buffer& buffer);

    std::string target_; ///< Of the last copy, "\" form.
    std::optional<AlternatingFile> copy_;
    Buffer buffer_{};
    std::size_t kept_ = 0; ///< The buffer's bytes that are the whole copy, 0 if it did not fit.
                           ///< Most pages fit, and are then not read back.
    Spelling spelling_;
};

} // namespace quillmark

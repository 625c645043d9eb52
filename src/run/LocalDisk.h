#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

/// The names in one local folder, each list in ascending byte order.
struct FolderListing {
    std::vector<std::string> folders;
    std::vector<std::string> files;
};

/// The local disk as a run needs it. All paths are in "\" form.
class LocalDisk {
public:
    virtual ~LocalDisk() = default;

    /// The subfolders and files of a folder, without hidden entries and symbolic links.
    /// Throws a Failure when the folder cannot be read.
    virtual FolderListing list(std::string_view folder) = 0;

    /// Copies a file in whole blocks of 1,025 bytes, the last one filled up with zero bytes. When
    /// the source has no such spelling on the disk, a name that differs in the case of ASCII
    /// letters is taken for it, component by component. Returns 0, or 1 when opening, reading or
    /// writing failed.
    virtual int CopyFileBinary(std::string_view source, std::string_view target) = 0;

    /// Hands the bytes of a file over, block by block; does nothing when there is no such file.
    /// Throws a Failure when there is one that cannot be read.
    virtual void read(std::string_view file,
                      const std::function<void(std::string_view block)>& take) = 0;

    /// Deletes the file if there is one. Throws a Failure when it cannot be deleted.
    virtual void deleteIfThere(std::string_view file) = 0;
};

} // namespace quillmark

#pragma once

#include <filesystem>
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

    /// Copies a file in whole blocks of 1,025 bytes, the last one filled up with zero bytes. If the
    /// disk has no such spelling of the source, one that differs in the case of ASCII letters is
    /// taken, component by component. The target is whole at any moment: the earlier file or the
    /// copy. `goOn` is called between the parts of a long file; false gives up the copy. Returns 0,
    /// or 1 if opening, reading or writing failed or the copy was given up. Throws a Failure if an
    /// earlier file cannot be deleted.
    virtual int CopyFileBinary(std::string_view source, std::string_view target,
                               const std::function<bool()>& goOn) = 0;

    /// Hands the bytes of a file over, block by block, for as long as `take` returns true; does
    /// nothing when there is no such file. Throws a Failure when there is one that cannot be read.
    virtual void read(std::string_view file,
                      const std::function<bool(std::string_view block)>& take) = 0;

    /// Deletes the file if there is one. Throws a Failure when it cannot be deleted.
    virtual void deleteIfThere(std::string_view file) = 0;

    /// Moves a file to a path in the machine's own form, over an existing file too. The original is
    /// deleted only when the copy is complete and was read back, so that nothing is lost whatever
    /// fails. Throws a Failure and leaves the original as it is if that is not possible, or if both
    /// names are the same file.
    virtual void moveFile(std::string_view source, const std::filesystem::path& target) = 0;

    /// Forgets what one copy kept for the next ones of the same run.
    virtual void endRun() = 0;
};

} // namespace quillmark

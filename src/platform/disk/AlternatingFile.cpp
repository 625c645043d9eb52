#include "platform/disk/AlternatingFile.h"

#include "platform/TemporaryFile.h"

#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr mode_t PageMode = 0666;

} // namespace

AlternatingFile::AlternatingFile(std::string file)
    : file_(std::move(file)), spareFile_(file_ + ".part") {}

AlternatingFile::~AlternatingFile() {
    if (isAt(spareFile_, spare_)) {
        ::unlink(spareFile_.c_str());
    }
}

bool AlternatingFile::replace(
    const std::function<std::optional<off_t>(const FileDescriptor& to)>& write) {
    if (!openSpare()) {
        return false;
    }
    const off_t before = std::exchange(spare_.length, 0);
    const std::optional<off_t> length = write(spare_.descriptor);
    if (!length || (before > *length && ::ftruncate(spare_.descriptor.number(), *length) != 0)) {
        // What it holds now is useless, and its length unknown.
        ::unlink(spareFile_.c_str());
        return false;
    }
    spare_.length = *length;
    return exchange();
}

/// Whether the path still leads to the file, and no other path does: a user may have kept a page by
/// a hard link.
bool AlternatingFile::isAt(const std::string& path, const Made& made) {
    struct stat status {};
    return made.descriptor.isOpen() && ::lstat(path.c_str(), &status) == 0 &&
           status.st_dev == made.device && status.st_ino == made.inode && status.st_nlink == 1;
}

bool AlternatingFile::openSpare() {
    if (isAt(spareFile_, spare_)) {
        return true;
    }
    ::unlink(spareFile_.c_str());
    // O_EXCL: a link put there by somebody else must not lead our writing to another file.
    spare_ = {FileDescriptor(
        ::open(spareFile_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, PageMode))};
    struct stat status {};
    if (!spare_.descriptor.isOpen() || ::fstat(spare_.descriptor.number(), &status) != 0) {
        return false;
    }
    spare_.device = status.st_dev;
    spare_.inode = status.st_ino;
    return true;
}

bool AlternatingFile::exchange() {
    const bool ours = isAt(file_, current_);
    if (ours &&
        ::renameat2(AT_FDCWD, spareFile_.c_str(), AT_FDCWD, file_.c_str(), RENAME_EXCHANGE) == 0) {
        std::swap(current_, spare_);
        return true;
    }
    // The first page, something else in the place, or a file system that cannot swap. Deleted
    // first: ext4 writes a file that replaces another one to the disk at once, which takes
    // milliseconds.
    remove();
    if (::rename(spareFile_.c_str(), file_.c_str()) != 0) {
        return false;
    }
    std::swap(current_, spare_);
    return true;
}

void AlternatingFile::remove() {
    deleteIfThere(file_);
    current_ = {};
}

} // namespace quillmark

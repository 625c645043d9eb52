#include "platform/disk/FileMove.h"

#include "base/Failure.h"
#include "platform/FileDescriptor.h"
#include "platform/TemporaryFile.h"

#include <array>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace fs = std::filesystem;

namespace {

using Block = std::array<char, std::size_t{64} * 1024>;

bool sameTime(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool unchanged(const struct stat& before, const struct stat& now) {
    return before.st_dev == now.st_dev && before.st_ino == now.st_ino &&
           before.st_size == now.st_size && sameTime(before.st_mtim, now.st_mtim);
}

/// The file to be moved, as it was when the move began. Links are not followed: deleting one would
/// leave its file where it is.
class Original {
public:
    explicit Original(const fs::path& path)
        : path_(path),
          descriptor_(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)) {
        if (!descriptor_.isOpen() || ::fstat(descriptor_.number(), &status_) != 0) {
            throwLastError();
        }
        if (!S_ISREG(status_.st_mode)) {
            throw diskFailure("Not a file");
        }
    }

    const FileDescriptor& descriptor() const { return descriptor_; }
    const struct stat& status() const { return status_; }

    /// Throws a Failure if another program has changed or replaced it since.
    void expectUnchanged() const {
        struct stat now {};
        if (::lstat(path_.c_str(), &now) != 0) {
            throwLastError();
        }
        if (!unchanged(status_, now)) {
            throw diskFailure("The file was changed while it was moved");
        }
    }

    void remove() const {
        if (::unlink(path_.c_str()) != 0) {
            throwLastError();
        }
    }

private:
    fs::path path_;
    FileDescriptor descriptor_;
    struct stat status_ {};
};

/// The bytes of the file from `offset` on, a block at most; empty at its end.
std::string_view readAt(const FileDescriptor& file, off_t offset, Block& block) {
    std::size_t length = 0;
    while (length < block.size()) {
        const ssize_t count = ::pread(file.number(), block.data() + length, block.size() - length,
                                      offset + static_cast<off_t>(length));
        if (count < 0) {
            throwLastError();
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    return {block.data(), length};
}

void copyBytes(const FileDescriptor& from, TemporaryFile& to) {
    Block block;
    off_t offset = 0;
    for (auto bytes = readAt(from, offset, block); !bytes.empty();
         bytes = readAt(from, offset, block)) {
        to.write(bytes);
        offset += static_cast<off_t>(bytes.size());
    }
}

void copyStatus(const struct stat& status, const FileDescriptor& to) {
    const std::array<timespec, 2> times = {status.st_atim, status.st_mtim};
    if (::fchmod(to.number(), status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) != 0 ||
        ::futimens(to.number(), times.data()) != 0) {
        throwLastError();
    }
}

void expectEqual(const FileDescriptor& a, const FileDescriptor& b) {
    Block blockOfA;
    Block blockOfB;
    off_t offset = 0;
    for (;;) {
        const std::string_view bytes = readAt(a, offset, blockOfA);
        if (bytes != readAt(b, offset, blockOfB)) {
            throw diskFailure("The copy differs from the file");
        }
        if (bytes.empty()) {
            return;
        }
        offset += static_cast<off_t>(bytes.size());
    }
}

bool isMine(const struct stat& status) {
    return ::geteuid() == 0 || status.st_uid == ::geteuid();
}

/// Throws a Failure if the original could not be deleted after the copy, which would leave two
/// files: its folder may be read-only, or shared by users who may each delete their own files only.
void expectRemovable(const fs::path& file, const struct stat& status) {
    const fs::path folder = file.has_parent_path() ? file.parent_path() : ".";
    struct stat shared {};
    if (::access(folder.c_str(), W_OK | X_OK) != 0 || ::stat(folder.c_str(), &shared) != 0) {
        throwLastError();
    }
    if ((shared.st_mode & S_ISVTX) != 0 && !isMine(status) && !isMine(shared)) {
        throw permissionDenied();
    }
}

void expectOtherFile(const fs::path& source, const fs::path& target) {
    std::error_code noTarget;
    if (fs::equivalent(source, target, noTarget)) {
        throw diskFailure("Both names are the same file");
    }
}

} // namespace

void moveFile(const fs::path& source, const fs::path& target) {
    const Original original(source);
    expectRemovable(source, original.status());
    expectOtherFile(source, target);
    TemporaryFile copy(target.parent_path(), S_IRUSR | S_IWUSR);
    copyBytes(original.descriptor(), copy);
    copyStatus(original.status(), copy.descriptor());
    copy.flush();
    expectEqual(original.descriptor(), copy.descriptor());
    // Checked before the copy takes the target's name, and again before the original goes.
    original.expectUnchanged();
    copy.rename(target);
    original.expectUnchanged();
    original.remove();
}

} // namespace quillmark

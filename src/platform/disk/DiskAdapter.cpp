#include "platform/disk/DiskAdapter.h"

#include "base/Failure.h"
#include "platform/FileDescriptor.h"
#include "platform/NativePath.h"
#include "platform/TemporaryFile.h"
#include "platform/disk/FileMove.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t CopyBlock = 1025;

/// O_NONBLOCK: a named pipe in a page's place must not hold the run.
FileDescriptor openForReading(const std::string& file) {
    return FileDescriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

bool isPlainFile(const FileDescriptor& file) {
    struct stat status {};
    return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

/// Leaves out hidden names, links, and what is neither a folder nor a plain file.
void sortEntry(const fs::directory_entry& entry, FolderListing& listing) {
    std::string name = entry.path().filename().string();
    std::error_code error;
    if (name.starts_with('.') || entry.is_symlink(error)) {
        return;
    }
    if (entry.is_directory(error)) {
        listing.folders.push_back(std::move(name));
    } else if (entry.is_regular_file(error)) {
        listing.files.push_back(std::move(name));
    }
}

} // namespace

FolderListing DiskAdapter::list(std::string_view folder) {
    const fs::path path = spelling_.onDisk(nativePath(folder));
    std::error_code error;
    FolderListing listing;
    fs::directory_iterator entry(path, error);
    while (!error && entry != fs::directory_iterator()) {
        sortEntry(*entry, listing);
        entry.increment(error);
    }
    if (error) {
        throw failureFromError(error, pathNotFound());
    }
    std::sort(listing.folders.begin(), listing.folders.end());
    std::sort(listing.files.begin(), listing.files.end());
    return listing;
}

int DiskAdapter::CopyFileBinary(std::string_view source, std::string_view target,
                                const std::function<bool()>& goOn) {
    if (!copy_ || target != target_) {
        target_ = target;
        copy_.emplace(nativeName(target));
    }
    kept_ = 0;
    const FileDescriptor from = openInAnySpelling(nativeName(source));
    if (!from.isOpen() || !isPlainFile(from)) {
        return 1;
    }
    const bool copied =
        copy_->replace([&](const FileDescriptor& to) { return copyPadded(from, to, goOn); });
    return copied ? 0 : 1;
}

FileDescriptor DiskAdapter::openInAnySpelling(const std::string& file) {
    FileDescriptor exact = openForReading(file);
    if (exact.isOpen() || errno != ENOENT) {
        return exact;
    }
    return openForReading(spelling_.onDisk(file).native());
}

/// Returns the length of the copy, or nullopt if it failed or was given up.
std::optional<off_t> DiskAdapter::copyPadded(const FileDescriptor& source, const FileDescriptor& to,
                                             const std::function<bool()>& goOn) {
    off_t total = 0;
    for (;;) {
        const auto length = readBlock(source, buffer_);
        if (!length) {
            return std::nullopt;
        }
        const std::size_t padded = (*length + CopyBlock - 1) / CopyBlock * CopyBlock;
        std::memset(buffer_.data() + *length, 0, padded - *length);
        if (!writeAt(to, std::string_view(buffer_.data(), padded), total)) {
            return std::nullopt;
        }
        total += static_cast<off_t>(padded);
        if (*length < buffer_.size()) {
            kept_ = total == static_cast<off_t>(padded) ? padded : 0;
            return total;
        }
        if (!goOn()) {
            return std::nullopt;
        }
    }
}

/// Reads as many bytes as fit, fewer only at the end of the file; nullopt if reading failed.
std::optional<std::size_t> DiskAdapter::readBlock(const FileDescriptor& file, Buffer& buffer) {
    std::size_t length = 0;
    while (length < buffer.size()) {
        const ssize_t count = ::read(file.number(), buffer.data() + length, buffer.size() - length);
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    return length;
}

void DiskAdapter::endRun() {
    target_.clear();
    copy_.reset();
    kept_ = 0;
    spelling_ = Spelling();
}

void DiskAdapter::read(std::string_view file,
                       const std::function<bool(std::string_view block)>& take) {
    // A page that was just copied is still in memory.
    if (kept_ > 0 && file == target_) {
        take({buffer_.data(), kept_});
        return;
    }
    const FileDescriptor source = openForReading(nativeName(file));
    if (!source.isOpen() && errno == ENOENT) {
        return;
    }
    if (!source.isOpen()) {
        throwLastError();
    }
    Buffer buffer;
    for (;;) {
        const auto length = readBlock(source, buffer);
        if (!length) {
            throwLastError();
        }
        if (*length == 0 || !take({buffer.data(), *length})) {
            return;
        }
    }
}

void DiskAdapter::deleteIfThere(std::string_view file) {
    if (file == target_) {
        kept_ = 0;
    }
    quillmark::deleteIfThere(nativePath(file));
}

void DiskAdapter::moveFile(std::string_view source, const fs::path& target) {
    quillmark::moveFile(nativePath(source), target);
}

} // namespace quillmark

#include "platform/disk/DiskAdapter.h"

#include "base/Failure.h"
#include "platform/FileDescriptor.h"
#include "platform/NativePath.h"
#include "platform/disk/Spelling.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t CopyBlock = 1025;
using Buffer = std::array<char, std::size_t{64} * 1024>;

/// O_NONBLOCK: a named pipe in a page's place must not hold the run.
FileDescriptor openForReading(const fs::path& file) {
    return FileDescriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

FileDescriptor openInAnySpelling(const fs::path& file) {
    FileDescriptor exact = openForReading(file);
    if (exact.isOpen() || errno != ENOENT) {
        return exact;
    }
    return openForReading(onDiskSpelling(file));
}

bool isPlainFile(const FileDescriptor& file) {
    struct stat status {};
    return fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode);
}

/// The bytes read; empty when reading failed, no bytes at the end of the file.
std::optional<std::string_view> readBlock(const FileDescriptor& file, Buffer& buffer) {
    const ssize_t length = ::read(file.number(), buffer.data(), buffer.size());
    if (length < 0) {
        return std::nullopt;
    }
    return std::string_view(buffer.data(), static_cast<std::size_t>(length));
}

bool writeAll(const FileDescriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file.number(), bytes.data(), bytes.size());
        if (written < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool copyPadded(const FileDescriptor& source, const FileDescriptor& target) {
    Buffer buffer;
    std::size_t total = 0;
    for (;;) {
        const auto block = readBlock(source, buffer);
        if (!block) {
            return false;
        }
        if (block->empty()) {
            break;
        }
        if (!writeAll(target, *block)) {
            return false;
        }
        total += block->size();
    }
    static constexpr std::array<char, CopyBlock> Zeros{};
    const std::size_t padding = (CopyBlock - total % CopyBlock) % CopyBlock;
    return writeAll(target, std::string_view(Zeros.data(), padding));
}

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
    const fs::path path = onDiskSpelling(nativePath(folder));
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

int DiskAdapter::CopyFileBinary(std::string_view source, std::string_view target) {
    const FileDescriptor from = openInAnySpelling(nativePath(source));
    if (!from.isOpen() || !isPlainFile(from)) {
        return 1;
    }
    const FileDescriptor to(
        open(nativePath(target).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    return to.isOpen() && copyPadded(from, to) ? 0 : 1;
}

void DiskAdapter::read(std::string_view file,
                       const std::function<void(std::string_view block)>& take) {
    const FileDescriptor source = openForReading(nativePath(file));
    if (!source.isOpen() && errno == ENOENT) {
        return;
    }
    if (!source.isOpen()) {
        throw failureFromError(lastSystemError(), fileNotFound());
    }
    Buffer buffer;
    for (;;) {
        const auto block = readBlock(source, buffer);
        if (!block) {
            throw failureFromError(lastSystemError(), fileNotFound());
        }
        if (block->empty()) {
            return;
        }
        take(*block);
    }
}

void DiskAdapter::deleteIfThere(std::string_view file) {
    const fs::path path = nativePath(file);
    std::error_code error;
    const fs::file_type type = fs::symlink_status(path, error).type();
    if (type == fs::file_type::not_found || type == fs::file_type::directory) {
        return;
    }
    if (!fs::remove(path, error) && error) {
        throw failureFromError(error, fileNotFound());
    }
}

} // namespace quillmark

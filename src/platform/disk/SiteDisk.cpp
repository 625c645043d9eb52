#include "platform/disk/SiteDisk.h"

#include "base/Failure.h"
#include "platform/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <optional>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

std::string linkText(int folder, const char* name) {
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlinkat(folder, name, text.data(), text.size());
    return {text.data(), length < 0 ? 0 : static_cast<std::size_t>(length)};
}

/// nullopt for sockets, pipes and devices, and for what has gone in the meantime.
std::optional<SiteEntry> entryOf(int folder, const dirent& found) {
    SiteEntry entry{found.d_name, SiteEntry::Kind::Folder, 0, {}};
    // Most file systems tell the type with the name, which spares a look at each folder.
    if (found.d_type == DT_DIR) {
        return entry;
    }
    struct stat status {};
    if (::fstatat(folder, found.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    if (S_ISLNK(status.st_mode)) {
        entry.kind = SiteEntry::Kind::Link;
        entry.leadsTo = linkText(folder, found.d_name);
        return entry;
    }
    if (S_ISREG(status.st_mode)) {
        entry.kind = SiteEntry::Kind::File;
        entry.size = static_cast<std::uint64_t>(status.st_size);
        return entry;
    }
    return S_ISDIR(status.st_mode) ? std::optional(entry) : std::nullopt;
}

/// An open file that is no folder, pipe or device. Throws a Failure if it cannot be opened.
struct PlainFile {
    explicit PlainFile(const std::string& file)
        // O_NONBLOCK: a named pipe in a page's place must not hold the run.
        : descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        struct stat status {};
        if (!descriptor.isOpen() || ::fstat(descriptor.number(), &status) != 0) {
            throwLastError();
        }
        if (!S_ISREG(status.st_mode)) {
            throw diskFailure("Not a file");
        }
        size = static_cast<std::size_t>(status.st_size);
    }

    FileDescriptor descriptor;
    std::size_t size = 0;
};

/// Reads to the end, even of a file that grows or shrinks meanwhile. The buffer never shrinks,
/// since each growth would fill it with zeros first.
std::size_t readAll(const FileDescriptor& file, std::size_t expected, std::string& buffer) {
    // One byte more than expected: the end is then found without growing.
    buffer.resize(std::max(buffer.size(), expected + 1));
    std::size_t length = 0;
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer.data() + length, buffer.size() - length);
        if (count < 0) {
            throwLastError();
        }
        if (count == 0) {
            return length;
        }
        length += static_cast<std::size_t>(count);
        if (length == buffer.size()) {
            buffer.resize(length * 2);
        }
    }
}

} // namespace

std::vector<SiteEntry> SiteDisk::list(const std::string& folder) {
    const OpenFolder open(::opendir(folder.c_str()));
    if (!open) {
        throwLastError(pathNotFound());
    }
    std::vector<SiteEntry> entries;
    const int number = ::dirfd(open.get());
    while (const dirent* found = ::readdir(open.get())) {
        const std::string_view name = found->d_name;
        if (name == "." || name == "..") {
            continue;
        }
        if (auto entry = entryOf(number, *found)) {
            entries.push_back(*std::move(entry));
        }
    }
    return entries;
}

std::string_view SiteDisk::read(const std::string& file, std::string& buffer) {
    const PlainFile open(file);
    const std::size_t length = readAll(open.descriptor, open.size, buffer);
    return {buffer.data(), length};
}

std::string_view SiteDisk::readBlock(const std::string& file, std::uint64_t offset,
                                     std::string& buffer) {
    constexpr std::size_t BlockSize = std::size_t{1} << 20U;
    const PlainFile open(file);
    buffer.resize(BlockSize);
    const ssize_t count =
        ::pread(open.descriptor.number(), buffer.data(), BlockSize, static_cast<off_t>(offset));
    if (count < 0) {
        throwLastError();
    }
    return {buffer.data(), static_cast<std::size_t>(count)};
}

bool SiteDisk::answers(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

} // namespace quillmark

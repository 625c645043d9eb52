#include "platform/TemporaryFile.h"

#include "base/Failure.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr std::string_view Prefix = ".quillmark-";
constexpr std::string_view Extension = ".tmp";

/// The process id tells the next program whether this one still runs.
std::string nameFor(pid_t process, int attempt) {
    return std::string(Prefix) + std::to_string(process) + "-" + std::to_string(attempt) +
           std::string(Extension);
}

/// Whether this is the name of a temporary file whose program no longer runs.
bool isAbandoned(const std::string& name) {
    if (!name.starts_with(Prefix) || !name.ends_with(Extension)) {
        return false;
    }
    pid_t process = 0;
    const char* const end = name.data() + name.size();
    const auto read = std::from_chars(name.data() + Prefix.size(), end, process);
    const bool isOurs = read.ec == std::errc() && read.ptr != end && *read.ptr == '-';
    // Signal 0 only asks whether there is such a process.
    return isOurs && process > 0 && ::kill(process, 0) != 0 && errno == ESRCH;
}

/// Makes a new name survive a power cut. If the file system cannot do that, nothing fails: the file
/// is complete.
void flushFolder(const std::filesystem::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen()) {
        ::fsync(opened.number());
    }
}

} // namespace

TemporaryFile::~TemporaryFile() {
    if (!renamed_) {
        ::unlink(path_.c_str());
    }
}

void TemporaryFile::write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_.number(), bytes.data(), bytes.size());
        if (written < 0) {
            throwLastError(pathNotFound());
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TemporaryFile::flush() {
    if (::fsync(descriptor_.number()) != 0) {
        throwLastError(pathNotFound());
    }
}

void TemporaryFile::rename(const std::filesystem::path& file) {
    if (::rename(path_.c_str(), file.c_str()) != 0) {
        throwLastError(pathNotFound());
    }
    renamed_ = true;
    flushFolder(file.parent_path());
}

void TemporaryFile::removeAbandoned(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (isAbandoned(entry->path().filename().string())) {
            ::unlink(entry->path().c_str());
        }
    }
}

/// Tries names until one is free: another part of this program may be writing there.
FileDescriptor TemporaryFile::create(const std::filesystem::path& folder, mode_t mode) {
    removeAbandoned(folder);
    for (int attempt = 0;; ++attempt) {
        path_ = folder / nameFor(::getpid(), attempt);
        FileDescriptor created(::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (created.isOpen()) {
            return created;
        }
        if (errno != EEXIST) {
            throwLastError(pathNotFound());
        }
    }
}

void replaceFile(const std::filesystem::path& file, std::string_view bytes, mode_t mode) {
    TemporaryFile temporary(file.parent_path(), mode);
    temporary.write(bytes);
    temporary.flush();
    temporary.rename(file);
}

void deleteIfThere(const std::filesystem::path& file) {
    // A folder counts as no file, which is no failure.
    if (::unlink(file.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR || errno == EISDIR) {
        return;
    }
    throwLastError();
}

} // namespace quillmark

#include "platform/TemporaryFile.h"

#include "base/Failure.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace quillmark {

namespace {

[[noreturn]] void throwLastError() {
    throw failureFromError(lastSystemError(), pathNotFound());
}

/// Makes a new name outlast a power cut. Not every file system can; the file is complete without
/// it.
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
            throwLastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void TemporaryFile::flush() {
    if (::fsync(descriptor_.number()) != 0) {
        throwLastError();
    }
}

void TemporaryFile::rename(const std::filesystem::path& file) {
    if (::rename(path_.c_str(), file.c_str()) != 0) {
        throwLastError();
    }
    renamed_ = true;
    flushFolder(file.parent_path());
}

/// Tries names until one is free: others may belong to a program that is writing, or was stopped.
FileDescriptor TemporaryFile::create(const std::filesystem::path& folder, mode_t mode) {
    for (int attempt = 0;; ++attempt) {
        path_ = folder / (".quillmark-" + std::to_string(::getpid()) + "-" +
                          std::to_string(attempt) + ".tmp");
        FileDescriptor created(::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (created.isOpen()) {
            return created;
        }
        if (errno != EEXIST) {
            throwLastError();
        }
    }
}

} // namespace quillmark

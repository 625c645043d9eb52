#pragma once

#include "base/Failure.h"

#include <string_view>
#include <system_error>
#include <utility>

#include <sys/types.h>

namespace quillmark {

/// An open file of the operating system, or none. Closes it at the end of the scope.
class FileDescriptor {
public:
    /// Takes what open() returned, which may be -1.
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor();

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_;
};

/// Writes all the bytes from `offset` on. False if the operating system refuses.
bool writeAt(const FileDescriptor& file, std::string_view bytes, off_t offset);

/// Why the operating system refused the last call (errno).
std::error_code lastSystemError();

/// Throws what failureFromError() makes of lastSystemError().
[[noreturn]] void throwLastError(const Failure& missing = fileNotFound());

} // namespace quillmark

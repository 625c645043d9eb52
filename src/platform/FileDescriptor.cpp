#include "platform/FileDescriptor.h"

#include <cerrno>

#include <unistd.h>

namespace quillmark {

FileDescriptor::~FileDescriptor() {
    if (isOpen()) {
        ::close(number_);
    }
}

bool writeAt(const FileDescriptor& file, std::string_view bytes, off_t offset) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file.number(), bytes.data(), bytes.size(), offset);
        if (written < 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += static_cast<off_t>(written);
    }
    return true;
}

std::error_code lastSystemError() {
    return {errno, std::generic_category()};
}

void throwLastError(const Failure& missing) {
    throw failureFromError(lastSystemError(), missing);
}

} // namespace quillmark

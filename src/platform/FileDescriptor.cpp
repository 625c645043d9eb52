#include "platform/FileDescriptor.h"

#include <cerrno>

#include <unistd.h>

namespace quillmark {

FileDescriptor::~FileDescriptor() {
    if (isOpen()) {
        ::close(number_);
    }
}

std::error_code lastSystemError() {
    return {errno, std::generic_category()};
}

void throwLastError(const Failure& missing) {
    throw failureFromError(lastSystemError(), missing);
}

} // namespace quillmark

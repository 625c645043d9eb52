#include "platform/host/PageFile.h"

#include "base/Failure.h"
#include "platform/NativePath.h"
#include "platform/TemporaryFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr mode_t PageMode = 0666;

void require(bool done) {
    if (!done) {
        throw failureFromError(lastSystemError(), pathNotFound());
    }
}

} // namespace

PageFile::PageFile(std::string_view localFile)
    : file_(nativePath(localFile)), part_(file_.native() + ".part") {
    // A pipe would hang the program and a link lead elsewhere: delete what is there, then create.
    deleteIfThere(part_);
    descriptor_ =
        FileDescriptor(::open(part_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, PageMode));
    require(descriptor_.isOpen());
}

PageFile::~PageFile() {
    ::unlink(part_.c_str());
}

void PageFile::append(std::string_view bytes) {
    size_ += bytes.size();
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_.number(), bytes.data(), bytes.size());
        require(written >= 0);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void PageFile::restart() {
    size_ = 0;
    require(::ftruncate(descriptor_.number(), 0) == 0 &&
            ::lseek(descriptor_.number(), 0, SEEK_SET) == 0);
}

void PageFile::keep() {
    require(::rename(part_.c_str(), file_.c_str()) == 0);
}

} // namespace quillmark

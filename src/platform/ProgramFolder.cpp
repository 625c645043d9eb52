#include "platform/ProgramFolder.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "platform/FileDescriptor.h"
#include "platform/NativePath.h"
#include "platform/TemporaryFile.h"

#include <algorithm>
#include <array>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmark {

namespace {

constexpr mode_t EveryoneMode = 0666;
constexpr mode_t OwnerOnlyMode = 0600;

/// Opens the file. O_NONBLOCK: opening a pipe of that name would wait for ever.
FileDescriptor openPlainFile(const std::filesystem::path& file) {
    FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!opened.isOpen() || ::fstat(opened.number(), &status) != 0) {
        throwLastError();
    }
    if (!S_ISREG(status.st_mode)) {
        throw diskFailure("Not a plain file");
    }
    return opened;
}

/// The next bytes of the file; none at its end.
std::string_view nextBytes(const FileDescriptor& file, std::array<char, 65536>& block) {
    const ssize_t count = ::read(file.number(), block.data(), block.size());
    if (count < 0) {
        throwLastError();
    }
    return {block.data(), static_cast<std::size_t>(count)};
}

} // namespace

ProgramFolder::ProgramFolder(std::string_view folder) : folder_(folder) {
    TemporaryFile::removeAbandoned(nativePath(folder_));
}

std::string ProgramFolder::programFile(std::string_view name) const {
    return WithTrailingBackslash(folder_).append(name);
}

std::filesystem::path ProgramFolder::checkedPath(std::string_view name) const {
    if (name.find_first_of("/\\") != std::string_view::npos) {
        throw pathNotFound();
    }
    // The operating system would read the name only up to the zero byte.
    if (name.find('\0') != std::string_view::npos) {
        throw diskFailure(std::make_error_code(std::errc::invalid_argument).message());
    }
    return nativePath(programFile(name));
}

std::string ProgramFolder::read(std::string_view name) {
    const FileDescriptor file = openPlainFile(checkedPath(name));
    std::array<char, 65536> block{};
    std::string bytes;
    for (std::string_view next = nextBytes(file, block); !next.empty();
         next = nextBytes(file, block)) {
        bytes += next;
        if (bytes.size() > MaximumFileSize) {
            throw diskFailure(std::make_error_code(std::errc::file_too_large).message());
        }
    }
    return bytes;
}

void ProgramFolder::replace(std::string_view name, std::string_view bytes, FileAccess access) {
    replaceFile(checkedPath(name), bytes,
                access == FileAccess::OwnerOnly ? OwnerOnlyMode : EveryoneMode);
}

std::vector<std::string> ProgramFolder::names(std::string_view extension) {
    std::vector<std::string> found;
    std::error_code error;
    std::filesystem::directory_iterator entry(nativePath(WithTrailingBackslash(folder_)), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::error_code statusError;
        if (name.ends_with(extension) && entry->is_regular_file(statusError)) {
            found.push_back(std::move(name));
        }
    }
    if (error) {
        throw failureFromError(error, pathNotFound());
    }
    std::sort(found.begin(), found.end());
    return found;
}

void ProgramFolder::remove(std::string_view name) {
    if (::unlink(checkedPath(name).c_str()) != 0) {
        throwLastError();
    }
}

} // namespace quillmark

#include "platform/FolderChoice.h"

#include "base/Failure.h"

#include <cstdlib>
#include <string>

#include <unistd.h>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

std::optional<fs::path> environmentPath(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr || *value == '\0') {
        return std::nullopt;
    }
    return fs::path(value);
}

/// A program in a folder "bin" is an installed one: root can write there, but should not.
std::optional<fs::path> executableFolder() {
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (error || folder.filename() == "bin" || !canBeWritten(folder)) {
        return std::nullopt;
    }
    return folder;
}

fs::path userDataFolder() {
    const auto data = environmentPath("XDG_DATA_HOME");
    // A relative path does not count (XDG base directories).
    if (data && data->is_absolute()) {
        return *data / "quillmark";
    }
    return environmentPath("HOME").value_or("/") / ".local" / "share" / "quillmark";
}

fs::path preferredFolder(const std::optional<fs::path>& asked) {
    if (asked) {
        return *asked;
    }
    if (const auto folder = environmentPath("QUILLMARK_FOLDER")) {
        return *folder;
    }
    return executableFolder().value_or(userDataFolder());
}

} // namespace

bool canBeWritten(const fs::path& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

fs::path chooseProgramFolder(const std::optional<fs::path>& asked) {
    fs::path folder = fs::absolute(preferredFolder(asked)).lexically_normal();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) {
        throw failureFromError(error, pathNotFound());
    }
    if (!fs::is_directory(folder, error)) {
        throw pathNotFound();
    }
    if (!canBeWritten(folder)) {
        throw permissionDenied();
    }
    return folder;
}

} // namespace quillmark

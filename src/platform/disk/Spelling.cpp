#include "platform/disk/Spelling.h"

#include "base/UpperCase.h"

#include <optional>
#include <string>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

std::optional<std::string> sameButForCase(const fs::path& folder, const std::string& name) {
    const std::string upper = upperAscii(name);
    std::optional<std::string> match;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::string candidate = entry->path().filename().string();
        if (upperAscii(candidate) == upper && (!match || candidate < *match)) {
            match = std::move(candidate);
        }
    }
    return match;
}

} // namespace

fs::path onDiskSpelling(const fs::path& path) {
    std::error_code error;
    if (fs::exists(path, error)) {
        return path;
    }
    fs::path spelled;
    for (const fs::path& component : path) {
        const fs::path exact = spelled / component;
        if (component.empty() || fs::exists(exact, error)) {
            spelled = exact;
            continue;
        }
        const auto match = sameButForCase(spelled, component.string());
        if (!match) {
            return path;
        }
        spelled /= *match;
    }
    return spelled;
}

} // namespace quillmark

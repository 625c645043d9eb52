#include "platform/disk/Spelling.h"

#include "base/UpperCase.h"

#include <utility>

namespace quillmark {

namespace {

namespace fs = std::filesystem;

std::unordered_map<std::string, std::string> readNames(const fs::path& folder) {
    std::unordered_map<std::string, std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::string name = entry->path().filename().string();
        std::string& first = names[upperAscii(name)];
        if (first.empty() || name < first) {
            first = std::move(name);
        }
    }
    return names;
}

} // namespace

fs::path Spelling::onDisk(const fs::path& path) {
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
        const Names& names = namesIn(spelled);
        const auto name = names.find(upperAscii(component.string()));
        if (name == names.end()) {
            return path;
        }
        spelled /= name->second;
    }
    return spelled;
}

const Spelling::Names& Spelling::namesIn(const fs::path& folder) {
    const auto known = folders_.find(folder.native());
    return known != folders_.end()
               ? known->second
               : folders_.emplace(folder.native(), readNames(folder)).first->second;
}

} // namespace quillmark

#include "web/judge/TargetFinder.h"

namespace quillmark::web {

namespace {

using What = Found::What;

} // namespace

Found TargetFinder::find(std::string& path) const {
    Found found = inventory_.find(path);
    if (found.what == What::Nothing && !path.empty() && !path.ends_with('/')) {
        found = findFolder(path);
    }
    if (found.what == What::Folder) {
        found = findIndex(path, found);
    }
    // The inventory ends at a link out of the site: only the disk knows what is behind it.
    if (found.what == What::Outside &&
        !source_.answers(std::string(inventory_.results().top) + path)) {
        found.what = What::Nothing;
    }
    if (found.what == What::Nothing && path.ends_with('/') && isDanglingFolder(path, found)) {
        return found;
    }
    return found.what == What::Nothing ? findOther(path) : found;
}

/// Whether the path is "docs/" and "docs" is a link to nothing. That deserves another finding than
/// a folder that was never there.
bool TargetFinder::isDanglingFolder(const std::string& path, Found& found) const {
    std::string link = path.substr(0, path.size() - 1);
    const Found behind = inventory_.find(link);
    if (behind.what != What::DanglingLink) {
        return false;
    }
    found = behind;
    return true;
}

/// Servers redirect visitors from "docs" to "docs/".
Found TargetFinder::findFolder(std::string& path) const {
    path += '/';
    const Found found = inventory_.find(path);
    if (found.what == What::Nothing || found.what == What::File) {
        path.pop_back();
        return {};
    }
    return found;
}

Found TargetFinder::findIndex(std::string& folder, const Found& found) const {
    const std::size_t length = folder.size();
    for (const std::string& name : rules_.indexNames) {
        folder += name;
        const Found index = inventory_.find(folder);
        if (index.what == What::File) {
            return index;
        }
        folder.resize(length);
    }
    return found;
}

/// What a server that has been set up so still finds: pages without their extension, names in
/// another letter case.
Found TargetFinder::findOther(std::string& path) const {
    if (rules_.cleanUrls && !path.empty() && !path.ends_with('/')) {
        for (const std::string& extension : rules_.pageExtensions) {
            std::string page = path;
            page.append(".").append(extension);
            const Found found = inventory_.find(page);
            if (found.what == What::File) {
                path = page;
                return found;
            }
        }
    }
    if (rules_.ignoreCase) {
        if (const auto spelled = spellings_.find(path)) {
            path = *spelled;
            const Found found = inventory_.find(path);
            return found.what == What::Folder ? findIndex(path, found) : found;
        }
    }
    return {};
}

} // namespace quillmark::web

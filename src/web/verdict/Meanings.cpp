#include "web/verdict/Meanings.h"

#include "base/FoldedName.h"
#include "web/address/PathSegments.h"

#include <algorithm>
#include <utility>

namespace quillmark::web {

namespace {

/// A name that more folders have than this says nothing about which of them was meant.
constexpr std::size_t MostOfOneName = 50;

std::string_view lastName(std::string_view path) {
    path.remove_suffix(path.ends_with('/') ? 1 : 0);
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

std::string_view parentOf(std::string_view path) {
    path.remove_suffix(path.ends_with('/') ? 1 : 0);
    return folderOf(path);
}

/// How many folders two paths share, counted from the top down and from the name up.
std::size_t kinship(std::string_view a, std::string_view b) {
    const auto head = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto tail = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend());
    return static_cast<std::size_t>(std::count(a.begin(), head.first, '/') +
                                    std::count(a.rbegin(), tail.first, '/'));
}

} // namespace

Meanings::Meanings(const Inventory& inventory, const Spellings& spellings,
                   const std::vector<std::string>& extensions)
    : inventory_(inventory), spellings_(spellings), extensions_(extensions) {
    const SiteResults& results = inventory.results();
    for (std::uint32_t file = 0; file < results.files.size(); ++file) {
        const std::string_view path = inventory.pathOf(file);
        byName_[lastName(path)].push_back(file);
        byFolder_[folderOf(path)].push_back(lastName(path));
    }
    for (const std::string_view folder : results.folders) {
        // With its "/", which tells it from a file.
        const std::string_view path = folder.substr(results.top.size());
        byFolder_[parentOf(path)].push_back(path.substr(parentOf(path).size()));
    }
}

const Meaning& Meanings::of(std::string_view path) {
    const auto known = known_.find(path);
    return known != known_.end() ? known->second : known_.emplace(path, find(path)).first->second;
}

/// The surest explanation comes first: the same letters in another form, a missing extension, the
/// same name elsewhere, a name that is nearly the same.
Meaning Meanings::find(std::string_view path) {
    if (const auto spelled = spellings_.find(path)) {
        const bool form = composedName(*spelled) == composedName(path);
        return {form ? FindingKind::OtherForm : FindingKind::OtherCase, std::string(*spelled)};
    }
    if (!path.empty() && !path.ends_with('/')) {
        for (const std::string& extension : extensions_) {
            std::string page = std::string(path) + "." + extension;
            if (inventory_.file(page)) {
                return {FindingKind::ExtensionLeftOut, std::move(page)};
            }
        }
    }
    auto meant = sameNameElsewhere(path);
    if (!meant) {
        meant = nearNameInFolder(path);
    }
    if (!meant) {
        meant = nearFolder(path);
    }
    return {FindingKind::Missing, std::move(meant)};
}

/// The only file of that name, or the one whose folders are most alike.
std::optional<std::string> Meanings::sameNameElsewhere(std::string_view path) const {
    const auto found = byName_.find(lastName(path));
    if (found == byName_.end() || path.ends_with('/') || found->second.size() > MostOfOneName) {
        return std::nullopt;
    }
    std::optional<std::string_view> best;
    std::size_t bestKinship = 0;
    bool several = false; // Whether another file is as alike as the best: then nobody can choose.
    for (const std::uint32_t file : found->second) {
        const std::string_view candidate = inventory_.pathOf(file);
        const std::size_t like = kinship(path, candidate);
        several = best && (like == bestKinship || (several && like < bestKinship));
        if (!best || like > bestKinship) {
            best = candidate;
            bestKinship = like;
        }
    }
    return several ? std::nullopt : std::optional(std::string(*best));
}

std::optional<std::string> Meanings::nearNameInFolder(std::string_view path) {
    const auto folder = byFolder_.find(parentOf(path));
    if (folder == byFolder_.end()) {
        return std::nullopt;
    }
    const std::string_view name = path.substr(parentOf(path).size());
    const auto nearest = near_.nearest(name, folder->second);
    return nearest
               ? std::optional(std::string(folder->first) + std::string(folder->second[*nearest]))
               : std::nullopt;
}

/// A file of exactly that name, in a folder whose name is nearly the same.
std::optional<std::string> Meanings::nearFolder(std::string_view path) {
    const std::string_view folder = parentOf(path);
    const auto beside = byFolder_.find(parentOf(folder));
    if (folder.empty() || inventory_.isFolder(folder) || beside == byFolder_.end()) {
        return std::nullopt;
    }
    const auto nearest = near_.nearest(folder.substr(beside->first.size()), beside->second);
    if (!nearest) {
        return std::nullopt;
    }
    std::string meant = std::string(beside->first) + std::string(beside->second[*nearest]) +
                        std::string(path.substr(folder.size()));
    return inventory_.file(meant) ? std::optional(std::move(meant)) : std::nullopt;
}

} // namespace quillmark::web

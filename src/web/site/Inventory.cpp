#include "web/site/Inventory.h"

#include <utility>

namespace quillmark::web {

Found Inventory::find(std::string& path) const {
    Found found = findExact(path);
    if (found.what != Found::What::Nothing || folderLinks_.empty()) {
        return found;
    }
    const auto number = linkOn(path);
    if (!number) {
        return {};
    }
    const FolderLink& link = folderLinks_[*number];
    if (!link.target) {
        return {Found::What::Outside, 0, true};
    }
    std::string real = path;
    real.replace(0, link.length, *link.target);
    // A link to a folder around itself could be followed again and again.
    const bool leadsUp = path.starts_with(*link.target);
    if (leadsUp || linkOn(real)) {
        path = real;
        return find(path);
    }
    found = findExact(real);
    found.throughLink = true;
    return found;
}

Found Inventory::findExact(std::string_view path) const {
    if (const auto number = file(path)) {
        const auto special = special_.find(*number);
        return {special == special_.end() ? Found::What::File : special->second, *number, false};
    }
    if (isNotListed(path)) {
        return {Found::What::NotListed, 0, false};
    }
    return {isFolder(path) ? Found::What::Folder : Found::What::Nothing, 0, false};
}

std::uint32_t Inventory::realFile(std::uint32_t file) const {
    for (int links = 0; file < fileLinks_.size() && fileLinks_[file] != file && links < MostLinks;
         ++links) {
        file = fileLinks_[file];
    }
    return file;
}

void Inventory::addFileLink(std::uint32_t link, std::uint32_t file) {
    for (auto next = static_cast<std::uint32_t>(fileLinks_.size()); next < results_.files.size();
         ++next) {
        fileLinks_.push_back(next);
    }
    fileLinks_[link] = file;
}

void Inventory::addFolderLink(std::uint32_t link, std::string_view path,
                              std::optional<std::string> target) {
    special_[link] = Found::What::Nothing;
    folderLinkNumbers_.insert(path, static_cast<std::uint32_t>(folderLinks_.size()));
    folderLinks_.push_back({path.size(), std::move(target)});
}

/// The first link among the folders of a path.
std::optional<std::uint32_t> Inventory::linkOn(std::string_view path) const {
    for (std::size_t end = path.find('/'); end != std::string_view::npos;
         end = path.find('/', end + 1)) {
        if (const auto number = folderLinkNumbers_.find(path.substr(0, end + 1))) {
            return number;
        }
    }
    return std::nullopt;
}

bool Inventory::isNotListed(std::string_view path) const {
    if (notListed_.empty()) {
        return false;
    }
    for (std::size_t end = path.find('/'); end != std::string_view::npos;
         end = path.find('/', end + 1)) {
        if (notListed_.contains(path.substr(0, end + 1))) {
            return true;
        }
    }
    return false;
}

} // namespace quillmark::web

#pragma once

#include "findings/SiteResults.h"
#include "web/site/PathTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace quillmark::web {

/// How many links are followed from one to the next: as many as Linux follows. A longer chain goes
/// in circles.
inline constexpr int MostLinks = 40;

/// What a path of the site leads to.
struct Found {
    enum class What : std::uint8_t {
        Nothing,
        File,
        DanglingLink, ///< A file that is a link to nothing.
        Folder,
        Outside,  ///< Something that is there, reached by a link that leaves the site.
        NotListed ///< In a folder whose names are not known.
    };

    What what = What::Nothing;
    std::uint32_t file = 0;   ///< Index of a file.
    bool throughLink = false; ///< A folder on the way is a link, so the path is not the file's own.
};

/// The files and folders of a site, by path. Paths are relative to the top of the site and decoded;
/// a folder ends in "/", and the top is "". Once it is filled, several threads may ask at once.
class Inventory {
public:
    explicit Inventory(const SiteResults& results) : results_(results) {}

    /// What exactly this path leads to, through links inside the site. A path may go through one
    /// folder that is a link. At a second one, or at a link to a folder around itself, `path`
    /// changes to where the link leads: otherwise one file would have endlessly many paths.
    Found find(std::string& path) const;
    /// The file that the listing of its folder has under exactly this path; follows no links.
    std::optional<std::uint32_t> file(std::string_view path) const { return files_.find(path); }
    bool isFolder(std::string_view path) const {
        return path.empty() || folders_.find(path).has_value();
    }
    /// The path of a file.
    std::string_view pathOf(std::uint32_t file) const {
        return results_.files[file].path.substr(results_.top.size());
    }
    const SiteResults& results() const { return results_; }
    /// The file that a link to a file leads to in the end; the file itself if it is not a link, or
    /// if the link leaves the site.
    std::uint32_t realFile(std::uint32_t file) const;
    /// Whether the file's bytes lie in the site.
    bool isInSite(std::uint32_t file) const { return !results_.files[realFile(file)].link; }

    // The walk fills the inventory in by these.
    void addFile(std::uint32_t file) { files_.insert(pathOf(file), file); }
    void addFolder(std::string_view path, std::uint32_t number) { folders_.insert(path, number); }
    void addNotListed(std::string_view path) { notListed_.insert(path); }
    void addFileLink(std::uint32_t link, std::uint32_t file);
    void addDanglingLink(std::uint32_t link) { special_[link] = Found::What::DanglingLink; }
    /// `path` ends in "/"; `target` is a folder of the site, or nothing for one outside.
    void addFolderLink(std::uint32_t link, std::string_view path,
                       std::optional<std::string> target);
    /// Whether the path lies in a folder whose names are not known.
    bool isNotListed(std::string_view path) const;

private:
    struct FolderLink {
        std::size_t length = 0; ///< Of the link's path, with the final "/".
        std::optional<std::string> target;
    };

    Found findExact(std::string_view path) const;
    std::optional<std::uint32_t> linkOn(std::string_view path) const;

    const SiteResults& results_;
    PathTable files_;
    PathTable folders_;
    PathTable folderLinkNumbers_;
    std::vector<FolderLink> folderLinks_;
    std::vector<std::uint32_t> fileLinks_; ///< By file: where a link leads, or the file itself.
    /// Links that are not files: DanglingLink, or Nothing for links to folders.
    std::unordered_map<std::uint32_t, Found::What> special_;
    std::unordered_set<std::string_view> notListed_;
};

} // namespace quillmark::web

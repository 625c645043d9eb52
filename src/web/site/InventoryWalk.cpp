#include "web/site/InventoryWalk.h"

#include "base/Failure.h"
#include "base/OrderedQueue.h"
#include "web/address/PathSegments.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillmark::web {

namespace {

/// In bytes. Linux takes no longer path, so nothing below could be read.
constexpr std::size_t LongestPath = 4096;

/// The entries of a folder, sorted by name.
struct ListedFolder {
    std::vector<SiteEntry> entries;
    std::string trouble; ///< Why it could not be listed; empty if it was.
};
using FolderQueue = OrderedQueue<std::string, ListedFolder>;

FolderQueue::Work listing(SiteSource& source) {
    return [&source](const std::string& folder, ListedFolder& listed) {
        listed = {};
        try {
            listed.entries = source.list(folder);
        } catch (const Failure& failure) {
            listed.trouble = failure.description();
        }
        std::sort(listed.entries.begin(), listed.entries.end(),
                  [](const SiteEntry& a, const SiteEntry& b) { return a.name < b.name; });
    };
}

class InventoryWalk {
public:
    InventoryWalk(SiteSource& source, const WalkLimits& limits, StopToken& stop,
                  SiteResults& results, Inventory& inventory, std::vector<std::string>& troubles)
        : source_(source), limits_(limits), stop_(stop), results_(results), inventory_(inventory),
          troubles_(troubles), queue_([&source] { return listing(source); }, limits.threads) {}

    void perform() {
        queue_.add(std::string(results_.top));
        takeFolder(results_.top, 0);
        for (std::size_t i = 0; i < results_.folders.size() && !stop_.stopped(); ++i) {
            if (isEntered(depths_[i])) {
                takeFolder(results_.folders[i], depths_[i]);
            } else {
                inventory_.addNotListed(fromTop(results_.folders[i]));
            }
        }
        for (const Link& link : links_) {
            follow(link);
        }
        if (tooLong_ > 0) {
            troubles_.push_back("Paths of more than 4096 bytes left out: " +
                                std::to_string(tooLong_));
        }
    }

private:
    struct Link {
        std::uint32_t file;
        std::string leadsTo;
    };

    std::string_view fromTop(std::string_view full) const {
        return full.substr(results_.top.size());
    }

    bool isEntered(int depth) const { return limits_.levels == 0 || depth <= limits_.levels; }

    void takeFolder(std::string_view folder, int depth) {
        ListedFolder& listed = queue_.take();
        if (!listed.trouble.empty()) {
            troubles_.push_back("Cannot list " + std::string(folder) + ": " + listed.trouble);
            inventory_.addNotListed(fromTop(folder));
            return;
        }
        const bool hidden = isHidden(fromTop(folder));
        std::string path(folder);
        for (SiteEntry& entry : listed.entries) {
            path.resize(folder.size());
            path += entry.name;
            if (path.size() > LongestPath) {
                ++tooLong_;
            } else if (entry.kind == SiteEntry::Kind::Folder) {
                addFolder(path + '/', depth + 1);
            } else {
                addFile(path, std::move(entry), hidden);
            }
        }
    }

    static bool isHidden(std::string_view path) {
        return path.starts_with('.') || path.find("/.") != std::string_view::npos;
    }

    void addFolder(const std::string& path, int depth) {
        const std::string_view kept = results_.texts.keep(path);
        inventory_.addFolder(fromTop(kept), static_cast<std::uint32_t>(results_.folders.size()));
        results_.folders.push_back(kept);
        depths_.push_back(depth);
        if (isEntered(depth)) {
            source_.expectListing(path);
            queue_.add(path);
        }
    }

    void addFile(const std::string& path, SiteEntry&& entry, bool hidden) {
        const auto number = static_cast<std::uint32_t>(results_.files.size());
        const bool link = entry.kind == SiteEntry::Kind::Link;
        results_.files.push_back({results_.texts.keep(path), entry.size, link,
                                  hidden || entry.name.starts_with('.'), false});
        inventory_.addFile(number);
        if (link) {
            links_.push_back({number, std::move(entry.leadsTo)});
        }
    }

    /// The path in the site that a link leads to; nothing if it leaves the site.
    std::optional<std::string> inSite(std::string_view linkPath, std::string_view leadsTo) const {
        std::string path;
        if (leadsTo.starts_with('/')) {
            if (results_.top.empty() || !leadsTo.starts_with(results_.top)) {
                return std::nullopt;
            }
            leadsTo.remove_prefix(results_.top.size());
        } else {
            path = folderOf(linkPath);
        }
        return walkTo(std::move(path), leadsTo);
    }

    /// Appends the target of a link to a path. A target is a path of the system: nothing in it is
    /// percent-encoded, and "\" is part of a name.
    static std::optional<std::string> walkTo(std::string path, std::string_view text) {
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('/'), text.size());
            const std::string_view name = text.substr(0, end);
            text.remove_prefix(std::min(end + 1, text.size()));
            if (name == "..") {
                if (path.empty()) {
                    return std::nullopt;
                }
                path.resize(folderOf(std::string_view(path).substr(0, path.size() - 1)).size());
            } else if (!name.empty() && name != ".") {
                path.append(name).append(1, '/');
            }
        }
        return path;
    }

    const Link* linkAt(std::string_view path) const {
        const auto number = inventory_.file(path);
        if (!number || !results_.files[*number].link) {
            return nullptr;
        }
        const auto found =
            std::lower_bound(links_.begin(), links_.end(), *number,
                             [](const Link& link, std::uint32_t file) { return link.file < file; });
        return &*found;
    }

    /// Replaces the first link on the way to `path` by its target; false if there is none. Empties
    /// the path if the target leaves the site.
    bool replaceLink(std::optional<std::string>& path) const {
        for (std::size_t end = path->find('/'); end != std::string::npos;
             end = path->find('/', end + 1)) {
            const std::string_view part = std::string_view(*path).substr(0, end);
            if (const Link* link = linkAt(part)) {
                const std::string rest = path->substr(end + 1);
                auto target = inSite(part, link->leadsTo);
                path = target ? walkTo(*std::move(target), rest) : std::nullopt;
                return true;
            }
        }
        return false;
    }

    void follow(const Link& link) {
        const std::string_view linkPath = inventory_.pathOf(link.file);
        auto path = inSite(linkPath, link.leadsTo);
        for (int links = 0; path && links < MostLinks && replaceLink(path); ++links) {
        }
        if (!path) {
            followOutside(link.file);
            return;
        }
        const std::string file = path->substr(0, path->size() - (path->empty() ? 0 : 1));
        if (const auto number = inventory_.file(file); number && !results_.files[*number].link) {
            inventory_.addFileLink(link.file, *number);
        } else if (inventory_.isFolder(*path)) {
            addFolderLink(link.file, *path);
        } else if (!inventory_.isNotListed(*path)) {
            inventory_.addDanglingLink(link.file);
        }
    }

    void followOutside(std::uint32_t file) {
        const std::string full(results_.files[file].path);
        if (!source_.answers(full)) {
            inventory_.addDanglingLink(file);
        } else if (source_.answers(full + '/')) {
            addFolderLink(file, std::nullopt);
        }
    }

    void addFolderLink(std::uint32_t link, std::optional<std::string> target) {
        const std::string path(inventory_.pathOf(link));
        inventory_.addFolderLink(link, results_.texts.keep(path + '/'), std::move(target));
    }

    SiteSource& source_;
    const WalkLimits& limits_;
    StopToken& stop_;
    SiteResults& results_;
    Inventory& inventory_;
    std::vector<std::string>& troubles_;
    FolderQueue queue_;
    std::vector<int> depths_; ///< By folder.
    std::vector<Link> links_; ///< By ascending file.
    std::size_t tooLong_ = 0;
};

} // namespace

void takeInventory(SiteSource& source, const WalkLimits& limits, StopToken& stop,
                   SiteResults& results, Inventory& inventory, std::vector<std::string>& troubles) {
    InventoryWalk(source, limits, stop, results, inventory, troubles).perform();
}

} // namespace quillmark::web

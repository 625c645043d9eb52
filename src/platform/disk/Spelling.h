#pragma once

#include <filesystem>
#include <string>
#include <unordered_map>

namespace quillmark {

/// How the disk spells names. Many sites were written on disks that do not tell "Page.html" from
/// "page.html", and must be found on disks that do.
class Spelling {
public:
    /// The path as the disk spells it: a component that is not there gives way to one that differs
    /// only in the case of ASCII letters, the first in byte order. A path without such a match
    /// comes back as it is. A folder is read once for all names that are looked for in it, since a
    /// site whose pages are all spelled differently would cost a reading for each of them.
    std::filesystem::path onDisk(const std::filesystem::path& path);

private:
    using Names = std::unordered_map<std::string, std::string>; ///< Upper-cased to the disk's.

    const Names& namesIn(const std::filesystem::path& folder);

    std::unordered_map<std::string, Names> folders_;
};

} // namespace quillmark

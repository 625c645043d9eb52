#include "web/verdict/FilePasses.h"

#include "base/Failure.h"
#include "base/Hash.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace quillmark::web {

namespace {

constexpr std::array<std::string_view, 11> AskedFor = {
    "robots.txt", "favicon.ico", "404.html", "ads.txt",           "humans.txt",    "security.txt",
    "CNAME",      "_redirects",  "_headers", "browserconfig.xml", "quillmark.toml"};

using Files = std::vector<std::uint32_t>;

/// Hands a file to `take` block by block, as long as it returns true.
template <typename Take> void readBlocks(SiteSource& source, const std::string& file, Take take) {
    std::string buffer;
    for (std::uint64_t offset = 0;;) {
        const std::string_view block = source.readBlock(file, offset, buffer);
        if (block.empty() || !take(offset, block)) {
            return;
        }
        offset += block.size();
    }
}

std::uint64_t contentHash(SiteSource& source, const std::string& file, StopToken& stop) {
    std::uint64_t hash = 0;
    readBlocks(source, file, [&](std::uint64_t offset, std::string_view block) {
        hash = hash * 31 + hashOf(block) + offset;
        return !stop.stopped();
    });
    return hash;
}

bool equalBytes(SiteSource& source, const std::string& a, const std::string& b) {
    bool equal = true;
    std::string other;
    readBlocks(source, a, [&](std::uint64_t offset, std::string_view block) {
        equal = block == source.readBlock(b, offset, other);
        return equal;
    });
    return equal;
}

/// The files that may have a twin, by size.
std::map<std::uint64_t, Files> bySize(const SiteResults& results) {
    std::map<std::uint64_t, Files> sizes;
    for (std::uint32_t i = 0; i < results.files.size(); ++i) {
        const SiteFile& file = results.files[i];
        if (!file.link && !file.hidden) {
            sizes[file.size].push_back(i);
        }
    }
    std::erase_if(sizes, [](const auto& size) { return size.second.size() < 2; });
    return sizes;
}

/// Of files with one hash, those that equal the first byte for byte. Two different files with one
/// hash are too rare to look for a second group.
Files equalToFirst(const SiteResults& results, SiteSource& source, const Files& files) {
    Files equal = {files.front()};
    const std::string first(results.files[files.front()].path);
    for (std::size_t i = 1; i < files.size(); ++i) {
        if (equalBytes(source, first, std::string(results.files[files[i]].path))) {
            equal.push_back(files[i]);
        }
    }
    return equal;
}

void splitByContent(SiteResults& results, SiteSource& source, StopToken& stop, const Files& files) {
    std::map<std::uint64_t, Files> hashes;
    for (const std::uint32_t file : files) {
        try {
            hashes[contentHash(source, std::string(results.files[file].path), stop)].push_back(
                file);
        } catch (const Failure&) {
            continue; // It has gone, or may not be read: nobody can call it equal.
        }
    }
    for (const auto& hash : hashes) {
        if (hash.second.size() < 2 || stop.stopped()) {
            continue;
        }
        Files equal = equalToFirst(results, source, hash.second);
        if (equal.size() > 1) {
            results.duplicates.push_back(std::move(equal));
        }
    }
}

std::string_view nameOfFile(std::string_view path) {
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

} // namespace

bool isAskedForByName(std::string_view path) {
    const std::string_view name = nameOfFile(path);
    return std::find(AskedFor.begin(), AskedFor.end(), name) != AskedFor.end() ||
           (name.starts_with("sitemap") && name.ends_with(".xml"));
}

void findUnusedFiles(SiteResults& results, const Patterns& keep) {
    for (std::uint32_t i = 0; i < results.files.size(); ++i) {
        const SiteFile& file = results.files[i];
        const std::string_view path = results.fromTop(file.path);
        if (!file.used && !file.link && !file.hidden && !isAskedForByName(path) &&
            !keep.match(path)) {
            results.unused.push_back(i);
        }
    }
}

void findDuplicateFiles(SiteResults& results, SiteSource& source, StopToken& stop) {
    for (const auto& size : bySize(results)) {
        if (!stop.stopped()) {
            splitByContent(results, source, stop, size.second);
        }
    }
    std::sort(results.duplicates.begin(), results.duplicates.end());
    results.duplicatesKnown = !stop.stopped();
}

void findDuplicatesByName(SiteResults& results) {
    std::map<std::pair<std::string_view, std::uint64_t>, Files> groups;
    for (std::uint32_t i = 0; i < results.files.size(); ++i) {
        const SiteFile& file = results.files[i];
        if (!file.link && !file.hidden) {
            groups[{nameOfFile(file.path), file.size}].push_back(i);
        }
    }
    for (auto& group : groups) {
        if (group.second.size() > 1) {
            results.duplicates.push_back(std::move(group.second));
        }
    }
    std::sort(results.duplicates.begin(), results.duplicates.end());
    results.duplicatesKnown = true;
}

} // namespace quillmark::web

#include "web/site/HostSource.h"

#include "base/Failure.h"
#include "web/site/HostListing.h"

#include <utility>

namespace quillmark::web {

namespace {

/// 1025: nobody can tell what is in the folder.
Failure unknownListing() {
    return {1025, "The host's listing is of an unknown style"};
}

} // namespace

std::vector<SiteEntry> HostSource::list(const std::string& folder) {
    HostListing lines;
    const auto takeLine = [&lines](std::string_view line) { lines.takeLine(line); };
    if (folder.empty()) {
        ftp_.listWorkingDirectory(takeLine);
    } else {
        ftp_.list(folder, takeLine);
    }
    if (lines.understood) {
        return std::move(lines.entries);
    }
    // Only now, since facts may leave out links.
    HostListing facts;
    ftp_.listFacts(folder, [&facts](std::string_view line) { facts.takeFacts(line); });
    HostListing& better = facts.entries.empty() ? lines : facts;
    if (better.entries.empty()) {
        throw unknownListing();
    }
    return std::move(better.entries);
}

std::string_view HostSource::read(const std::string& file, std::string& buffer) {
    if (!ftp_.retrieve(file, workingCopy_)) {
        throw fileNotFound();
    }
    buffer.clear();
    disk_.read(workingCopy_, [&buffer](std::string_view block) {
        buffer += block;
        return true;
    });
    return buffer;
}

std::string_view HostSource::readBlock(const std::string& file, std::uint64_t offset,
                                       std::string& buffer) {
    // A retrieved file comes whole, as its first block.
    return offset == 0 ? read(file, buffer) : std::string_view();
}

} // namespace quillmark::web

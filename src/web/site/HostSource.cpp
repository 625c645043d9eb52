#include "web/site/HostSource.h"

#include "base/Failure.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quillmark::web {

namespace {

/// One field of a line and where it ends.
struct Field {
    std::string_view text;
    std::size_t end = 0;
};

Field nextField(std::string_view line, std::size_t from) {
    const std::size_t start = std::min(line.find_first_not_of(' ', from), line.size());
    const std::size_t end = std::min(line.find(' ', start), line.size());
    return {line.substr(start, end - start), end};
}

bool isNumber(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// "12:00" or "2024".
bool isTimeOrYear(std::string_view text) {
    return text.find(':') != std::string_view::npos || (isNumber(text) && text.size() == 4);
}

/// Where the name begins: behind size, month, day and time, however many fields stand before them.
struct Columns {
    std::uint64_t size = 0;
    std::size_t name = 0;
};
std::optional<Columns> columnsOf(std::string_view line) {
    std::array<Field, 4> last; // size, month, day, time
    std::size_t at = 0;
    for (int count = 0; at < line.size(); ++count) {
        std::rotate(last.begin(), last.begin() + 1, last.end());
        last[3] = nextField(line, at);
        at = last[3].end;
        if (count >= 5 && isNumber(last[0].text) && isNumber(last[2].text) &&
            isTimeOrYear(last[3].text)) {
            Columns columns{0, at + 1};
            std::from_chars(last[0].text.data(), last[0].text.data() + last[0].text.size(),
                            columns.size);
            return columns;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<SiteEntry> entryOfLine(std::string_view line) {
    while (line.ends_with('\r') || line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    const auto columns = columnsOf(line);
    if (!columns || columns->name >= line.size()) {
        return std::nullopt;
    }
    SiteEntry entry{
        std::string(line.substr(columns->name)), SiteEntry::Kind::File, columns->size, {}};
    const std::size_t arrow = entry.name.find(" -> ");
    if (line.front() == 'l' && arrow != std::string::npos) {
        entry.kind = SiteEntry::Kind::Link;
        entry.leadsTo = entry.name.substr(arrow + 4);
        entry.name.resize(arrow);
    } else if (line.front() == 'd') {
        entry.kind = SiteEntry::Kind::Folder;
    } else if (line.front() != '-') {
        return std::nullopt;
    }
    const bool sound = !entry.name.empty() && entry.name != "." && entry.name != ".." &&
                       entry.name.find('/') == std::string::npos;
    return sound ? std::optional(std::move(entry)) : std::nullopt;
}

std::vector<SiteEntry> HostSource::list(const std::string& folder) {
    std::vector<SiteEntry> entries;
    const auto take = [&entries](std::string_view line) {
        if (auto entry = entryOfLine(line)) {
            entries.push_back(*std::move(entry));
        }
    };
    if (folder.empty()) {
        ftp_.listWorkingDirectory(take);
    } else {
        ftp_.list(folder, take);
    }
    return entries;
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
    return offset == 0 ? read(file, buffer) : std::string_view();
}

} // namespace quillmark::web

#include "web/site/HostListing.h"

#include "web/text/Ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

namespace quillmark::web {

namespace {

/// First letters of a UNIX line: file, folder, link, and the kinds that no page refers to.
constexpr std::string_view UnixTypes = "-dlbcpsD";
constexpr std::string_view Arrow = " -> ";

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
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::uint64_t numberOf(std::string_view digits) {
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// "12:00" or "2024".
bool isTimeOrYear(std::string_view text) {
    return text.find(':') != std::string_view::npos || (isNumber(text) && text.size() == 4);
}

bool isDay(std::string_view text) {
    return isNumber(text) && text.size() <= 2;
}

/// Month names may be in any language.
bool isMonth(std::string_view text) {
    return !text.empty() && !isNumber(text.substr(0, 1));
}

/// Whether the fields are a size and a date: "4711 Jan 31 12:00", "4711 31 Jan 2024".
bool areSizeAndDate(const std::array<Field, 4>& fields) {
    const std::string_view first = fields[1].text;
    const std::string_view second = fields[2].text;
    return isNumber(fields[0].text) && isTimeOrYear(fields[3].text) &&
           ((isMonth(first) && isDay(second)) || (isDay(first) && isMonth(second)));
}

/// "4711 2024-01-31 12:00".
bool areSizeAndIsoDate(const std::array<Field, 4>& fields) {
    const std::string_view date = fields[2].text;
    return isNumber(fields[1].text) && date.size() == 10 && date[4] == '-' && date[7] == '-' &&
           isTimeOrYear(fields[3].text);
}

struct Columns {
    std::uint64_t size = 0;
    std::size_t name = 0; ///< One blank behind the date: further blanks belong to the name.
};

/// Finds size and date, however many fields stand before them: some hosts leave out the link count
/// or the group, and names of users and groups may hold blanks.
std::optional<Columns> unixColumns(std::string_view line) {
    constexpr int FieldsBefore = 2;
    std::array<Field, 4> last;
    std::size_t at = 0;
    for (int count = 1; at < line.size(); ++count) {
        std::rotate(last.begin(), last.begin() + 1, last.end());
        last[3] = nextField(line, at);
        at = last[3].end;
        if (count >= FieldsBefore + 4 && areSizeAndDate(last)) {
            return Columns{numberOf(last[0].text), at + 1};
        }
        if (count >= FieldsBefore + 3 && areSizeAndIsoDate(last)) {
            return Columns{numberOf(last[1].text), at + 1};
        }
    }
    return std::nullopt;
}

/// Cuts "name -> target" into its parts. Either may hold an arrow itself; on most hosts the size of
/// a link is the length of its target, which tells the right arrow.
void cutLink(SiteEntry& entry) {
    const std::string text = std::exchange(entry.name, {});
    std::size_t arrow = text.find(Arrow);
    if (entry.size < text.size() && text.size() - entry.size >= Arrow.size()) {
        const std::size_t bySize = text.size() - entry.size - Arrow.size();
        arrow = text.compare(bySize, Arrow.size(), Arrow) == 0 ? bySize : arrow;
    }
    entry.name = text.substr(0, arrow);
    entry.leadsTo = arrow == std::string::npos ? "" : text.substr(arrow + Arrow.size());
}

/// "01-31-24  08:15PM", with two or four digits of the year. Returns where it ends.
std::optional<std::size_t> endOfDosDate(std::string_view line) {
    const Field date = nextField(line, 0);
    const Field time = nextField(line, date.end);
    const bool isDate = (date.text.size() == 8 || date.text.size() == 10) && date.text[2] == '-' &&
                        date.text[5] == '-' && isNumber(date.text.substr(0, 2));
    const bool isTime = time.text.size() >= 5 && time.text[2] == ':';
    return isDate && isTime ? std::optional(time.end) : std::nullopt;
}

/// An entry in DOS style. Names begin in a fixed column, so a name may begin with blanks; only a
/// large size moves it.
std::optional<SiteEntry> dosEntry(std::string_view line) {
    constexpr std::size_t NameBehindDate = 22;
    const auto date = endOfDosDate(line);
    if (!date) {
        return std::nullopt;
    }
    const Field size = nextField(line, *date);
    const bool folder = size.text == "<DIR>";
    if (!folder && !isNumber(size.text)) {
        return std::nullopt;
    }
    const std::size_t column = *date + NameBehindDate;
    const std::size_t first = std::min(line.find_first_not_of(' ', size.end), line.size());
    const std::size_t name = folder ? std::min(first, column) : size.end + 1;
    if (name >= line.size()) {
        return std::nullopt;
    }
    return SiteEntry{std::string(line.substr(name)),
                     folder ? SiteEntry::Kind::Folder : SiteEntry::Kind::File,
                     folder ? 0 : numberOf(size.text),
                     {}};
}

std::string_view withoutLineEnd(std::string_view line) {
    while (line.ends_with('\r') || line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    return line;
}

/// The value of a fact; its name may be in any letter case.
std::string_view factOf(std::string_view facts, std::string_view name) {
    while (!facts.empty()) {
        const std::string_view fact = facts.substr(0, facts.find(';'));
        facts.remove_prefix(std::min(fact.size() + 1, facts.size()));
        if (fact.size() > name.size() && fact[name.size()] == '=' &&
            equalIgnoringCase(fact.substr(0, name.size()), name)) {
            return fact.substr(name.size() + 1);
        }
    }
    return {};
}

} // namespace

void HostListing::takeLine(std::string_view line) {
    line = withoutLineEnd(line);
    if (line.empty() || line.starts_with("total ")) {
        return;
    }
    if (auto entry = dosEntry(line)) {
        add(*std::move(entry));
        return;
    }
    const auto columns = unixColumns(line);
    if (!columns || columns->name >= line.size() ||
        UnixTypes.find(line.front()) == std::string_view::npos) {
        understood = false;
        return;
    }
    SiteEntry entry{
        std::string(line.substr(columns->name)), SiteEntry::Kind::File, columns->size, {}};
    if (line.front() == 'l') {
        entry.kind = SiteEntry::Kind::Link;
        cutLink(entry);
    } else if (line.front() == 'd') {
        entry.kind = SiteEntry::Kind::Folder;
    } else if (line.front() != '-') {
        return;
    }
    add(std::move(entry));
}

void HostListing::takeFacts(std::string_view line) {
    constexpr std::string_view Slink = "OS.unix=slink:";
    line = withoutLineEnd(line);
    const std::size_t end = line.find("; ");
    // No fact has a blank in its name. Some hosts answer with a long listing instead of facts.
    if (end == std::string_view::npos || line.find('=') > line.find(' ')) {
        return;
    }
    const std::string_view facts = line.substr(0, end + 1);
    const std::string_view type = factOf(facts, "type");
    SiteEntry entry{std::string(line.substr(end + 2)),
                    SiteEntry::Kind::File,
                    numberOf(factOf(facts, "size")),
                    {}};
    if (equalIgnoringCase(type.substr(0, Slink.size()), Slink)) {
        entry.kind = SiteEntry::Kind::Link;
        entry.leadsTo = type.substr(Slink.size());
    } else if (equalIgnoringCase(type, "dir")) {
        entry.kind = SiteEntry::Kind::Folder;
    } else if (equalIgnoringCase(type, "cdir") || equalIgnoringCase(type, "pdir")) {
        return;
    }
    add(std::move(entry));
}

void HostListing::add(SiteEntry entry) {
    const bool sound = !entry.name.empty() && entry.name != "." && entry.name != ".." &&
                       entry.name.find('/') == std::string::npos;
    if (sound) {
        entries.push_back(std::move(entry));
    }
}

} // namespace quillmark::web

#include "base/Printable.h"
#include "base/Version.h"
#include "report/formats/Formats.h"
#include "report/page/PageParts.h"
#include "report/page/SourceLines.h"
#include "ui/ReadingWarnings.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iomanip>
#include <optional>
#include <sstream>
#include <string>
#include <unordered_map>
#include <vector>

namespace quillmark {

namespace {

/// The level of a known finding for the page's script, after errors (0) and notes (1).
constexpr int KnownLevel = 2;

constexpr int NewestMessages = 5;
constexpr std::size_t MostColumns = 1000;
constexpr std::size_t MostBytes = 4 * MostColumns;  // Of the longest characters.
constexpr std::size_t ShortBytes = MostColumns / 4; // Escaped, a byte takes four columns.

/// The bytes as a JSON string for a script element: nothing in it can end that element. Control
/// characters and what is not UTF-8 are written as printable() does.
std::string pageText(std::string_view bytes) {
    std::string text = "\"";
    for (const char c : printable(bytes)) {
        if (c == '<') {
            text += "\\u003c";
            continue;
        }
        if (c == '"' || c == '\\') {
            text += '\\';
        }
        text += c;
    }
    return text + '"';
}

/// Cuts a long text: a reference may hold megabytes, such as a whole image.
std::string shortText(std::string_view bytes) {
    if (bytes.size() <= ShortBytes) {
        return pageText(bytes);
    }
    const std::string_view beginning = bytes.substr(0, MostBytes);
    const std::string text = printable(beginning, MostColumns);
    const bool isWhole = beginning == bytes && text == printable(bytes);
    return pageText(isWhole ? text : text + "…");
}

std::string sourceText(std::string line) {
    // printable() would write a tab as "\x09".
    std::replace(line.begin(), line.end(), '\t', ' ');
    return pageText(line);
}

std::string now() {
    const std::time_t time = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::ostringstream text;
    text << std::put_time(std::localtime(&time), "%Y-%m-%d %H:%M");
    return text.str();
}

/// Texts that many findings share, each written once.
class SharedTexts {
public:
    /// The index of the text in all().
    std::size_t numberOf(std::string_view text) {
        const auto number = numbers_.try_emplace(std::string(text), all_.size());
        if (number.second) {
            all_.push_back(number.first->first);
        }
        return number.first->second;
    }
    const std::vector<std::string_view>& all() const { return all_; }

private:
    std::unordered_map<std::string, std::size_t> numbers_;
    std::vector<std::string_view> all_;
};

/// Writes the results as the page's script (results.js) reads them: rows of values without names,
/// since a large site has tens of thousands.
class PageResults {
public:
    PageResults(std::ostream& out, const CheckReport& report)
        : out_(out), report_(report), site_(report.site()) {}

    void write() {
        writeHead();
        writeMessages();
        writeNames();
        writeFiles();
        writeFindings();
        writeTexts("explanations", explanations_.all());
        writeTexts("targets", targets_.all());
        writeArray("ignored", site_.ignored, [this](const IgnoredReference& ignored) {
            out_ << "[" << static_cast<int>(ignored.reason) << ",";
            writePlace(ignored.at);
            out_ << "," << shortText(ignored.reference) << "]";
        });
        out_ << "}";
    }

private:
    void writeHead() {
        const std::string host = report_.run->localMode ? "" : report_.settings->profile.HOST_NAME;
        const std::string made = "Quillmark " + std::string(ApplicationVersion) + ", " +
                                 std::string(nameOf(report_.settings->profile.RULES)) + " rules, " +
                                 now();
        out_ << "{\"finished\":" << bit(report_.outcome == RunOutcome::Finished)
             << ",\"top\":" << pageText(host + std::string(site_.top))
             << ",\"made\":" << pageText(made) << ",\"read\":" << report_.counts.pages
             << ",\"references\":" << report_.counts.references
             << ",\"folders\":" << report_.counts.folders
             << ",\"addresses\":" << site_.addresses.size()
             << ",\"unusedKnown\":" << bit(report_.run->unusedPass == PassProgress::Done);
    }

    /// Writes what a user must know before trusting the results, and the last messages of a run
    /// that did not reach its end.
    void writeMessages() {
        const auto pages = static_cast<int>(report_.counts.pages);
        const std::vector<std::string> warnings = readingWarnings(report_.run->reading, pages);
        writeTexts("warnings", {warnings.begin(), warnings.end()});
        std::vector<std::string_view> messages;
        if (report_.outcome != RunOutcome::Finished) {
            const int count = report_.messages->Count();
            for (int i = std::max(0, count - NewestMessages); i < count; ++i) {
                messages.push_back(report_.messages->Line(i));
            }
        }
        writeTexts("messages", messages);
    }

    void writeNames() {
        std::vector<std::string_view> reasons;
        for (std::size_t reason = 0; reason < IgnoredReasons; ++reason) {
            reasons.push_back(nameOf(static_cast<IgnoredReason>(reason)));
        }
        writeTexts("reasons", reasons);
        writeArray("pages", site_.pages, [this](const SitePage& page) {
            out_ << pageText(report_.shownPath(site_.path(page.target)));
        });
    }

    void writeFiles() {
        std::vector<bool> unused(site_.files.size());
        for (const std::uint32_t file : site_.unused) {
            unused[file] = true;
        }
        std::size_t next = 0;
        writeArray("files", site_.files, [&](const SiteFile& file) {
            out_ << "[" << pageText(report_.shownPath(file.path)) << "," << file.size << ","
                 << bit(unused[next++]) << "]";
        });
        if (!site_.duplicatesKnown) {
            out_ << ",\"duplicates\":null";
            return;
        }
        writeArray("duplicates", site_.duplicates, [this](const auto& group) {
            for (std::size_t i = 0; i < group.size(); ++i) {
                out_ << (i == 0 ? "[" : ",") << group[i];
            }
            out_ << "]";
        });
    }

    void writeFindings() {
        std::size_t next = 0;
        writeArray("findings", site_.findings, [&](const Finding& finding) {
            const int level =
                report_.isKnown(next++) ? KnownLevel : static_cast<int>(finding.level);
            const Excerpt source = sourceOf(finding.at);
            out_ << "[" << explanations_.numberOf(explanationOf(finding)) << "," << level << ",";
            writePlace(finding.at);
            out_ << "," << shortText(finding.reference) << ","
                 << targets_.numberOf(targetOf(finding)) << "," << shortText(finding.suggestion)
                 << "," << sourceText(source.before) << "," << sourceText(source.after) << "]";
        });
    }

    void writePlace(const Place& at) { out_ << at.page << "," << at.line << "," << at.column; }

    /// The line of a page as it is now. Findings come page by page, so each page is read once.
    Excerpt sourceOf(const Place& at) {
        if (!report_.run->localMode || at.line == 0) {
            return {};
        }
        if (!source_ || at.page != sourcePage_) {
            source_.emplace(std::string(site_.pagePath(at.page)));
            sourcePage_ = at.page;
        }
        return source_->around(at.line, at.column);
    }

    /// What findings with one cause share.
    std::string targetOf(const Finding& finding) const {
        return finding.target.empty() ? std::string(finding.reference)
                                      : report_.shownPath(finding.target);
    }

    void writeTexts(std::string_view name, const std::vector<std::string_view>& texts) {
        writeArray(name, texts, [this](std::string_view text) { out_ << shortText(text); });
    }

    template <typename Items, typename Write>
    void writeArray(std::string_view name, const Items& items, Write write) {
        out_ << ",\n\"" << name << "\":[";
        bool first = true;
        for (const auto& item : items) {
            out_ << (first ? "" : ",\n");
            write(item);
            first = false;
        }
        out_ << "]";
    }

    static char bit(bool value) { return value ? '1' : '0'; }

    std::ostream& out_;
    const CheckReport& report_;
    const SiteResults& site_;
    SharedTexts explanations_;
    SharedTexts targets_;
    std::optional<SourceLines> source_; ///< Of the page sourcePage_.
    std::uint32_t sourcePage_ = 0;
};

} // namespace

void writeHtmlPage(std::ostream& out, const CheckReport& report) {
    out << PageBeginning;
    PageResults(out, report).write();
    out << PageEnd;
}

} // namespace quillmark

#include "ui/ReportWriter.h"

#include "base/Version.h"
#include "ui/LineWriter.h"
#include "ui/Thousands.h"

#include <algorithm>

namespace quillmark {

namespace {

constexpr std::string_view NoLines = "(none)";

void writeTitle(LineWriter& report, const Profile& profile) {
    report.line(ApplicationTitle, " Version ", ApplicationVersion);
    report.line("Results For ", profile.HOST_NAME);
    report.line("Start URL ", profile.START_PATH);
    report.line();
}

/// "Unused Host Files (2 Files)", or with the size of all of them when `bytes` has one.
std::string heading(std::string_view title, const ResultList& files, std::string_view bytes) {
    return std::string(title)
        .append(" (" + std::to_string(files.Count()) + " Files")
        .append(bytes)
        .append(")");
}

/// The part of a heading that tells a byte total, where the run has one.
std::string bytesPart(double total, const Settings& settings, const RunState& run) {
    if (settings.profile.GET_STATS != 1 || !run.statisticsComplete) {
        return {};
    }
    return " In " + groupedThousands(total, userThousandsSeparator()) + " Bytes";
}

template <typename List> void writeLines(LineWriter& report, const List& list) {
    for (int i = 0; i < list.Count(); ++i) {
        report.line(list.Line(i));
    }
}

void writeList(LineWriter& report, std::string_view title, const ResultList& list) {
    report.line(title);
    report.line();
    writeLines(report, list);
    if (list.Count() == 0) {
        report.line(NoLines);
    }
}

std::size_t longestLine(const ResultList& list) {
    std::size_t longest = 0;
    for (int i = 0; i < list.Count(); ++i) {
        longest = std::max(longest, list.Line(i).size());
    }
    return longest;
}

void writePair(LineWriter& report, std::string_view title, const ResultList& from,
               const ResultList& references) {
    report.line();
    report.line(title);
    report.line();
    // The second column begins behind the longest line of the first.
    const std::size_t width = longestLine(from);
    for (int i = 0; i < references.Count(); ++i) {
        report.line(PadToColumn(from.Line(i), width), references.Line(i));
    }
    if (references.Count() == 0) {
        report.line(NoLines);
    }
}

void writeHostFiles(LineWriter& report, const ResultLists& lists, const Settings& settings,
                    const RunState& run) {
    if (settings.configuration.SAVE_DIRECTORY == 1) {
        writeList(report, "Host Directory Listing", lists.DirectoryList);
    }
    if (settings.configuration.SAVE_FILE == 1) {
        report.line();
        writeList(report,
                  heading("Host File Listing", lists.FileList,
                          bytesPart(run.hostByteTotal, settings, run)),
                  lists.FileList);
    }
}

void writeReferences(LineWriter& report, const ResultLists& lists, const Configuration& options) {
    if (options.SAVE_REFERENCES == 1) {
        writePair(report, "Reference Listing", lists.ReferenceListFrom, lists.ReferenceList);
    }
    if (options.SAVE_INVALID == 1) {
        writePair(report, "Invalid References Listing", lists.InvalidReferencesFrom,
                  lists.InvalidReferences);
    }
    if (options.SAVE_IGNORED == 1) {
        writePair(report, "Ignored References Listing", lists.IgnoredReferencesFrom,
                  lists.IgnoredReferences);
    }
}

void writeUnneededFiles(LineWriter& report, const ResultLists& lists, const Settings& settings,
                        const RunState& run) {
    if (settings.configuration.SAVE_UNUSED == 1) {
        report.line();
        writeList(report,
                  heading("Unused Host Files", lists.UnusedList,
                          bytesPart(run.unusedByteTotal, settings, run)),
                  lists.UnusedList);
    }
    if (settings.configuration.SAVE_DUPLICATE == 1) {
        report.line();
        writeList(report, "Duplicate File Listing", lists.DuplicateList);
    }
}

void writeMessages(LineWriter& report, const ResultLists& lists, const Configuration& options) {
    if (options.SAVE_MESSAGES == 1) {
        report.line();
        report.line("Messages");
        report.line();
        writeLines(report, lists.Message);
    }
}

} // namespace

void WriteReport(const std::filesystem::path& path, const ResultLists& lists,
                 const Settings& settings, const RunState& run) {
    LineWriter report(path, std::ios::trunc);
    writeTitle(report, settings.profile);
    writeHostFiles(report, lists, settings, run);
    writeReferences(report, lists, settings.configuration);
    writeUnneededFiles(report, lists, settings, run);
    writeMessages(report, lists, settings.configuration);
    report.close();
}

std::string PadToColumn(std::string_view text, std::size_t width) {
    std::string column;
    column.reserve(std::max(width, text.size()) + 1);
    column.append(text).resize(std::max(width, text.size()), ' ');
    column += '\t';
    return column;
}

} // namespace quillmark

#include "command/output/Results.h"

#include "base/PathParser.h"
#include "base/Paths.h"
#include "base/Printable.h"
#include "base/Version.h"
#include "command/output/Style.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace quillmark {

namespace {

constexpr int NewestMessages = 5;
constexpr int ListHintColumn = 30;

class SummaryWriter {
public:
    SummaryWriter(std::ostream& out, RunOutcome outcome, const Workspace& workspace, bool color)
        : out_(out), outcome_(outcome), workspace_(workspace), lists_(workspace.lists),
          color_(color) {
        const std::string start = ToForwardSlashes(workspace.settings.profile.START_PATH);
        startFile_ = start;
        startDirectory_ = PathParser(start).Path();
    }

    void write() {
        writeHeading();
        writeOutcome();
        writeInvalid();
        writeOthers();
    }

private:
    std::string styled(std::string_view style, const std::string& text) const {
        return quillmark::styled(color_, style, text);
    }

    std::string shortName(std::string_view path) const {
        if (!startDirectory_.empty() && path.starts_with(startDirectory_)) {
            path.remove_prefix(startDirectory_.size());
        }
        return printable(path);
    }

    void writeHeading() {
        out_ << styled(Bold, "Quillmark " + std::string(ApplicationVersion)) << "  "
             << printable(startFile_) << "\n\n  "
             << counted(lists_.GetFileList.Count(), "page", "pages") << " read, "
             << counted(lists_.ReferenceList.Count(), "reference", "references") << ", "
             << counted(lists_.FileList.Count(), "file", "files") << " in "
             << counted(lists_.DirectoryList.Count() + 1, "folder", "folders") << "\n\n";
    }

    /// Says what a pass found, that this is not all if it was stopped, and that nothing was looked
    /// for if it never ran: "0 unused files" would read like a sound site.
    static std::string found(PassProgress pass, int count, const std::string& one,
                             const std::string& many) {
        if (pass == PassProgress::Done) {
            return counted(count, one, many);
        }
        return count > 0 || pass == PassProgress::Stopped ? counted(count, one, many) + " so far"
                                                          : many + " not looked for";
    }

    std::string_view styleOfInvalid(int count) const {
        if (count > 0) {
            return Red;
        }
        return workspace_.run.invalidPass == PassProgress::Done ? Green : Yellow;
    }

    /// The pages in the order of their first invalid reference.
    void writeInvalid() {
        const int count = lists_.InvalidReferences.Count();
        out_ << styled(styleOfInvalid(count), found(workspace_.run.invalidPass, count,
                                                    "invalid reference", "invalid references"))
             << "\n";
        std::map<std::string_view, std::size_t> places;
        std::vector<std::pair<std::string_view, std::vector<std::string_view>>> pages;
        for (int i = 0; i < count; ++i) {
            const std::string_view page = lists_.InvalidReferencesFrom.Line(i);
            const auto place = places.emplace(page, pages.size());
            if (place.second) {
                pages.push_back({page, {}});
            }
            pages[place.first->second].second.push_back(lists_.InvalidReferences.Line(i));
        }
        for (const auto& page : pages) {
            out_ << "  " << shortName(page.first) << "\n";
            for (const std::string_view reference : page.second) {
                out_ << "      " << styled(Red, shortName(reference)) << "\n";
            }
        }
        out_ << "\n";
    }

    void writeCount(const std::string& text, std::string_view listName, bool any) {
        out_ << text;
        if (any) {
            const int blanks = std::max(2, ListHintColumn - static_cast<int>(text.size()));
            out_ << std::string(static_cast<std::size_t>(blanks), ' ')
                 << styled(Dim, "--list " + std::string(listName));
        }
        out_ << "\n";
    }

    void writeOthers() {
        const int ignored = lists_.IgnoredReferences.Count();
        const int unused = lists_.UnusedList.Count();
        const int duplicates = lists_.DuplicateList.Count();
        writeCount(counted(ignored, "ignored reference", "ignored references"), "IgnoredReferences",
                   ignored > 0);
        writeCount(found(workspace_.run.unusedPass, unused, "unused file", "unused files"),
                   "UnusedList", unused > 0);
        if (workspace_.settings.profile.CHECK_DUPES == 0) {
            writeCount("duplicates not looked for" + std::string(5, ' ') +
                           styled(Dim, "--set CHECK_DUPES=1"),
                       "", false);
        } else {
            writeCount(found(workspace_.run.duplicatesPass, duplicates, "duplicate file",
                             "duplicate files"),
                       "DuplicateList", duplicates > 0);
        }
    }

    void writeOutcome() {
        if (outcome_ == RunOutcome::Finished) {
            return;
        }
        out_ << styled(Yellow, outcome_ == RunOutcome::Aborted
                                   ? "The run was aborted: these are the results so far."
                                   : "The run failed: these are the results so far.")
             << " Its last messages:\n";
        const CappedList& messages = lists_.Message;
        for (int i = std::max(0, messages.Count() - NewestMessages); i < messages.Count(); ++i) {
            out_ << "  " << printable(messages.Line(i)) << "\n";
        }
        out_ << "\n";
    }

    std::ostream& out_;
    RunOutcome outcome_;
    const Workspace& workspace_;
    const ResultLists& lists_;
    bool color_;
    std::string startFile_;
    std::string startDirectory_;
};

} // namespace

void writeSummary(std::ostream& out, RunOutcome outcome, const Workspace& workspace, bool color) {
    SummaryWriter(out, outcome, workspace, color).write();
}

} // namespace quillmark

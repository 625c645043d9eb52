#pragma once

#include "windows/outside/WindowContext.h"

#include <QWidget>

#include <filesystem>
#include <memory>

namespace quillmark {

class frmPrinting;

/// The commands that take the results of a run out of the program: Save and Print write a text
/// report, the others a page for a browser.
class ReportCommands {
public:
    /// `owner` is the window that dialogs and notices stand over; it outlives this.
    ReportCommands(WindowContext context, QWidget* owner);
    ~ReportCommands();
    ReportCommands(const ReportCommands&) = delete;
    ReportCommands& operator=(const ReportCommands&) = delete;

    /// Asks for a file and writes the report there. Ends without a word if anything goes wrong; a
    /// partly written file stays as it is.
    void Save();

    /// Writes the report to "Quillmark.tmp" in the program's folder, where it stays, and prints
    /// that file on the default printer. A message box tells what went wrong. Returns at once: the
    /// work begins when the user can see the notice that stands over `owner` until it is done.
    void Print();

    /// Asks for a file and writes the results there as one page. A message box tells what went
    /// wrong.
    void SaveAsPage();

    /// Writes that page to "Quillmark-results.html" in the program's folder, where it stays, and
    /// opens it in the browser. A message box tells what went wrong.
    void ShowAsPage();

    /// Remembers the settings at the beginning of a run: the page of its results names these, even
    /// if they are edited afterwards.
    void keepSettings() { checked_ = context_.workspace.settings; }

private:
    void writePage(const std::filesystem::path& path) const;
    void printNow();
    void write(const std::filesystem::path& path) const;
    bool printed(const std::filesystem::path& report);

    WindowContext context_;
    QWidget* owner_;
    Settings checked_;                    ///< Of the latest run.
    std::unique_ptr<frmPrinting> notice_; ///< Of the latest print.
};

} // namespace quillmark

#pragma once

#include "windows/outside/WindowContext.h"

#include <QWidget>

#include <filesystem>
#include <memory>

namespace quillmark {

class frmPrinting;

/// The commands Save and Print: both write the results of a run as a text report.
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

private:
    void printNow();
    void write(const std::filesystem::path& path) const;
    bool printed(const std::filesystem::path& report);

    WindowContext context_;
    QWidget* owner_;
    std::unique_ptr<frmPrinting> notice_; ///< Of the latest print.
};

} // namespace quillmark

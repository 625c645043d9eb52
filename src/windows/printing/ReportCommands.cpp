#include "windows/printing/ReportCommands.h"

#include "base/Failure.h"
#include "base/Paths.h"
#include "report/formats/Formats.h"
#include "ui/ReportWriter.h"
#include "windows/printing/frmPrinting.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

#include <QScopeGuard>

#include <cerrno>
#include <exception>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>

namespace quillmark {

namespace {

QStringList linesOf(const std::filesystem::path& report) {
    std::ifstream file(report, std::ios::binary);
    if (!file) {
        throw fileNotFound();
    }
    QStringList lines;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        lines += shown(line);
    }
    return lines;
}

} // namespace

ReportCommands::ReportCommands(WindowContext context, QWidget* owner)
    : context_(std::move(context)), owner_(owner) {}

ReportCommands::~ReportCommands() = default;

void ReportCommands::Save() {
    try {
        const auto path = context_.dialogs.saveFile(
            owner_,
            {"Save Results", "Quillmark", "txt", {"Text Files (*.txt)", "All Files (*.*)"}});
        if (path) {
            write(*path);
            context_.messages.post("File ", path->string(), " Written");
        }
    } catch (const std::exception&) {
        return; // The message that it was written is what tells the user of success.
    }
}

void ReportCommands::Print() {
    notice_ = std::make_unique<frmPrinting>(owner_);
    QObject::connect(notice_.get(), &frmPrinting::seen, notice_.get(), [this] { printNow(); });
    notice_->show();
}

void ReportCommands::SaveAsPage() {
    guarded(owner_, [this] {
        const auto path = context_.dialogs.saveFile(
            owner_, {"Save as a Page", "Quillmark", "html", {"Web Pages (*.html)"}});
        if (path) {
            writePage(*path);
            context_.messages.post("File ", path->string(), " Written");
        }
    });
}

void ReportCommands::ShowAsPage() {
    guarded(owner_, [this] {
        const std::filesystem::path page = context_.programFolder / "Quillmark-results.html";
        writePage(page);
        context_.shell.open(ToBackSlashes(page.string()));
    });
}

void ReportCommands::writePage(const std::filesystem::path& path) const {
    const Workspace& workspace = context_.workspace;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    writeHtmlPage(out, makeReport(workspace.run.outcome, workspace.site, workspace.lists,
                                  workspace.run, checked_));
    out.close();
    if (!out) {
        throw failureFromError({errno, std::generic_category()}, pathNotFound());
    }
}

void ReportCommands::printNow() {
    guarded(owner_, [this] {
        const std::filesystem::path report = context_.programFolder / "Quillmark.tmp";
        if (printed(report)) {
            context_.messages.post("Printing Completed");
        } else {
            tellError(owner_,
                      "There is no default printer. The report is in " + shown(report.string()));
        }
    });
}

void ReportCommands::write(const std::filesystem::path& path) const {
    const Workspace& workspace = context_.workspace;
    WriteReport(path, workspace.lists, workspace.settings, workspace.run);
}

bool ReportCommands::printed(const std::filesystem::path& report) {
    const auto closed = qScopeGuard([this] { notice_->hide(); });
    write(report);
    const bool available = context_.printer.available();
    if (available) {
        context_.printer.print(linesOf(report));
    }
    return available;
}

} // namespace quillmark

#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace quillmark {

/// The desktop that other programs are started from.
class Shell {
public:
    virtual ~Shell() = default;

    /// Opens a web address in the browser, or a local file (full path in "\" form) with the program
    /// for its kind. Returns at once. Throws a Failure if the desktop has no program for it.
    virtual void open(std::string_view target) = 0;

    /// Whether open() may run the target instead of showing it: programs, scripts, starters of
    /// programs (".desktop"), packages, and links to one of these.
    virtual bool startsProgram(std::string_view target) const = 0;

    /// Whether there is a text editor that can open a file at a line.
    virtual bool hasEditor() const = 0;
    /// Opens a local file (full path in "\" form) in that editor, at a line (1-based). Returns at
    /// once. Throws a Failure if the editor does not start.
    virtual void edit(std::string_view file, std::uint32_t line) = 0;
};

/// What a dialog for saving a file begins with.
struct SaveQuestion {
    QString title;
    std::filesystem::path proposed; ///< A file name, or a full path in the machine's own form.
    QString extension;              ///< Added to a name without one; may be empty.
    QStringList filters;            ///< "Text Files (*.txt)"; the first one is selected.
};

/// The desktop's file dialogs. Paths are in the machine's own form; no path means that the user
/// cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;

    /// Asks where to save; asks again before an existing file is chosen.
    virtual std::optional<std::filesystem::path> saveFile(QWidget* owner,
                                                          const SaveQuestion& question) = 0;
    /// Asks for a page to start from.
    virtual std::optional<std::filesystem::path> openPage(QWidget* owner) = 0;
    /// Asks for the file of a private key.
    virtual std::optional<std::filesystem::path> openKeyFile(QWidget* owner) = 0;
};

/// The system's default printer.
class ReportPrinter {
public:
    virtual ~ReportPrinter() = default;

    /// Whether there is one.
    virtual bool available() const = 0;
    /// Prints each text as one line, and ends the document. Throws a Failure if the printer does
    /// not take it.
    virtual void print(const QStringList& lines) = 0;
};

} // namespace quillmark

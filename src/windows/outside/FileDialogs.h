#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <filesystem>
#include <optional>

namespace quillmark {

/// What a dialog for saving a file begins with.
struct SaveQuestion {
    QString title;
    std::filesystem::path proposed; ///< A file name, or a full path in the machine's own form.
    QString extension;              ///< Added to a name without one; may be empty.
    QStringList filters;            ///< "Text Files (*.txt)"; the first one is selected.
};

/// The desktop's file dialogs. A file is named as a path in the machine's own form; no file means
/// that the user cancelled.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;

    /// Asks where to save; asks again before an existing file is chosen.
    virtual std::optional<std::filesystem::path> saveFile(QWidget* owner,
                                                          const SaveQuestion& question) = 0;
    /// Asks for a page to start from.
    virtual std::optional<std::filesystem::path> openPage(QWidget* owner) = 0;
};

} // namespace quillmark

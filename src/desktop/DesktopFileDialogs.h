#pragma once

#include "windows/outside/Desktop.h"

#include <QFileDialog>

namespace quillmark {

/// The file dialogs of the desktop, or Qt's own where it has none. They open in the folder where
/// the last file was chosen, unless a full path is proposed.
class DesktopFileDialogs : public FileDialogs {
public:
    std::optional<std::filesystem::path> saveFile(QWidget* owner,
                                                  const SaveQuestion& question) override;
    std::optional<std::filesystem::path> openPage(QWidget* owner) override;
    std::optional<std::filesystem::path> openKeyFile(QWidget* owner) override;

private:
    void beginIn(QFileDialog& dialog, const std::filesystem::path& folder) const;
    std::optional<std::filesystem::path> asked(QFileDialog& dialog);
    static std::optional<std::filesystem::path> chosenIn(QFileDialog& dialog);

    QString folder_; ///< Empty until a file was chosen.
};

} // namespace quillmark

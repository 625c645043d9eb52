#include "desktop/InstalledFiles.h"

#include <QCoreApplication>
#include <QFile>

namespace quillmark {

std::filesystem::path installedFiles() {
    const std::filesystem::path programs =
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    return programs.parent_path() / "share" / "quillmark";
}

} // namespace quillmark

#include "windows/main/DroppedPage.h"

#include "base/Paths.h"
#include "base/UpperCase.h"
#include "store/FileCategory.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace quillmark {

std::optional<std::string> droppedPage(const QMimeData& data, const ResultList& pageExtensions) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile()) {
        return std::nullopt;
    }
    const QFileInfo file(urls.first().toLocalFile());
    const std::string extension = upperCase(file.suffix().toStdString());
    if (!file.isFile() || !ListContains(pageExtensions, extension)) {
        return std::nullopt;
    }
    return ToBackSlashes(QFile::encodeName(file.absoluteFilePath()).toStdString());
}

} // namespace quillmark

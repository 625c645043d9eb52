#pragma once

#include <QDir>
#include <QPixmap>
#include <QWidget>

namespace quillmark::test {

/// Keeps a picture of a window that passes too quickly for the tour of the windows, in the folder
/// that QUILLMARK_PICTURES names, for a person to look at.
inline void keepPicture(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("QUILLMARK_PICTURES");
    if (!folder.isEmpty()) {
        QDir().mkpath(folder);
        window.grab().save(folder + "/" + name + ".png");
    }
}

} // namespace quillmark::test

#include "windows/main/WindowPlaces.h"

#include <QFile>
#include <QScreen>

namespace quillmark {

namespace {

/// The most pixels that a desktop's frame takes around a window.
constexpr QSize Frame(16, 48);

} // namespace

WindowPlaces::WindowPlaces(const std::filesystem::path& programFolder)
    : file_(QFile::decodeName((programFolder / "Quillmark.window").c_str()), QSettings::IniFormat) {
}

void WindowPlaces::restore(QWidget& window) const {
    if (!window.restoreGeometry(state(window.objectName()))) {
        window.resize(window.size().boundedTo(window.screen()->availableSize() - Frame));
    }
}

void WindowPlaces::keep(const QWidget& window) {
    keepState(window.objectName(), window.saveGeometry());
}

QByteArray WindowPlaces::state(const QString& name) const {
    return file_.value(name).toByteArray();
}

void WindowPlaces::keepState(const QString& name, const QByteArray& state) {
    file_.setValue(name, state);
}

std::vector<int> WindowPlaces::widths() const {
    std::vector<int> widths;
    for (const QVariant& width : file_.value("columnWidths").toList()) {
        widths.push_back(width.toInt());
    }
    return widths;
}

void WindowPlaces::keepWidths(const std::vector<int>& widths) {
    QVariantList list;
    for (const int width : widths) {
        list.append(width);
    }
    file_.setValue("columnWidths", list);
}

} // namespace quillmark

#include "windows/shared/ThemedIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <memory>
#include <utility>

/// Outside the namespace, as Qt's macro demands. Without this call the linker would leave out the
/// resources of a static library.
static void initializeIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace quillmark {

namespace {

QColor textColor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::ButtonText);
    }
}

class DrawingEngine : public QIconEngine {
public:
    explicit DrawingEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        QByteArray coloured = drawing_;
        coloured.replace("currentColor", textColor(mode).name().toLatin1());
        QSvgRenderer(coloured).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, picture.rect(), mode, state);
        return picture;
    }

    QIconEngine* clone() const override { return std::make_unique<DrawingEngine>(*this).release(); }

private:
    QByteArray drawing_;
};

} // namespace

QIcon themedIcon(const QString& name) {
    initializeIcons();
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    // The icon takes ownership of its engine.
    return QIcon(std::make_unique<DrawingEngine>(file.readAll()).release());
}

QIcon applicationIcon() {
    return themedIcon("quillmark");
}

} // namespace quillmark

#include "windows/shared/ElidedLabel.h"

#include "windows/shared/Text.h"

namespace quillmark {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    // Otherwise the window could not be made narrower than the longest path.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ElidedLabel::setWholeText(const QString& text) {
    whole_ = text;
    setAccessibleName(text);
    cut();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    cut();
}

void ElidedLabel::cut() {
    const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideMiddle, width());
    setText(fitting);
    setToolTip(fitting == whole_ ? QString() : plainToolTip(whole_));
}

} // namespace quillmark

#include "windows/shared/Screen.h"

#include <QScreen>

namespace quillmark {

namespace {

/// What a desktop's frame takes around a window, at most.
constexpr QSize Frame(16, 48);

} // namespace

void fitToScreen(QWidget& window) {
    window.resize(window.size().boundedTo(window.screen()->availableSize() - Frame));
}

} // namespace quillmark

#pragma once

#include <QWidget>

namespace quillmark {

/// Makes a window that was not shown yet no larger than its screen, with room for a frame.
void fitToScreen(QWidget& window);

} // namespace quillmark

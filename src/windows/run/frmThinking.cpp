#include "windows/run/frmThinking.h"

#include "ui_frmThinking.h"

namespace quillmark {

frmThinking::frmThinking(QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowDoesNotAcceptFocus),
      ui_(std::make_unique<Ui::frmThinking>()) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating);
    ui_->ProgressBar1->setMaximum(Steps);
}

frmThinking::~frmThinking() = default;

void frmThinking::open(const QString& caption) {
    setWindowTitle(caption);
    if (!isVisible()) {
        ui_->ProgressBar1->setValue(0);
        adjustSize();
        move(parentWidget()->window()->frameGeometry().center() - rect().center());
        show();
    }
    repaint(); // At once: whoever opens the window is about to be busy.
}

void frmThinking::setSteps(int steps) {
    ui_->ProgressBar1->setValue(steps);
}

} // namespace quillmark

#include "windows/printing/frmPrinting.h"

#include "ui_frmPrinting.h"

#include <chrono>
#include <utility>

namespace quillmark {

namespace {

/// A desktop that never shows the notice must not keep the report from being printed.
constexpr std::chrono::milliseconds LongestWait{300};

} // namespace

frmPrinting::frmPrinting(QWidget* owner)
    : QWidget(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      ui_(std::make_unique<Ui::frmPrinting>()) {
    ui_->setupUi(this);
    setWindowModality(Qt::WindowModal);
    waiting_.setSingleShot(true);
    connect(&waiting_, &QTimer::timeout, this, &frmPrinting::tellSeen);
    adjustSize();
    if (owner != nullptr) {
        move(owner->window()->frameGeometry().center() - rect().center());
    }
}

frmPrinting::~frmPrinting() = default;

void frmPrinting::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    waiting_.start(LongestWait);
}

void frmPrinting::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // What is painted here comes to the screen after this event.
    waiting_.start(0);
}

void frmPrinting::tellSeen() {
    if (!std::exchange(told_, true)) {
        emit seen();
    }
}

} // namespace quillmark

#include "windows/results/FindBar.h"

#include "ui_FindBar.h"

#include <QKeyEvent>

namespace quillmark {

FindBar::FindBar(QWidget* parent) : QWidget(parent), ui_(std::make_unique<Ui::FindBar>()) {
    ui_->setupUi(this);
    connect(ui_->txtFind, &QLineEdit::textChanged, this, [this] { step(FindStep::Here); });
    connect(ui_->cmdFindNext, &QToolButton::clicked, this, [this] { step(FindStep::Next); });
    connect(ui_->cmdFindPrevious, &QToolButton::clicked, this,
            [this] { step(FindStep::Previous); });
    connect(ui_->cmdFindClose, &QToolButton::clicked, this, &FindBar::closeAsked);
}

FindBar::~FindBar() = default;

void FindBar::open() {
    show();
    ui_->txtFind->setFocus();
    ui_->txtFind->selectAll();
}

void FindBar::step(FindStep step) {
    if (ui_->txtFind->text().isEmpty()) {
        showFound(true);
    } else {
        emit findAsked(ui_->txtFind->text(), step);
    }
}

void FindBar::showFound(bool found) {
    ui_->lblFound->setText(found ? QString() : "No match");
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        step(event->modifiers().testFlag(Qt::ShiftModifier) ? FindStep::Previous : FindStep::Next);
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace quillmark

#include "windows/run/frmDebug.h"

#include "ui_frmDebug.h"
#include "windows/shared/RowCopy.h"

#include <QFontDatabase>
#include <QShortcut>

namespace quillmark {

frmDebug::frmDebug(const WindowContext& context, QWidget* parent)
    : QMainWindow(parent), dialogs_(context.dialogs), saver_(context.workspace.trace),
      lines_(context.workspace.trace.DebugList()), ui_(std::make_unique<Ui::frmDebug>()) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_ShowWithoutActivating);
    ui_->DebugList->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->DebugList->setModel(&lines_);
    ui_->DebugList->addAction(ui_->mnuCopy);
    connect(ui_->mnuSaveTrace, &QAction::triggered, this, &frmDebug::save);
    connect(ui_->mnuCopy, &QAction::triggered, this, [this] { copySelectedRows(*ui_->DebugList); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

frmDebug::~frmDebug() = default;

void frmDebug::refresh() {
    if (!isVisible()) {
        return;
    }
    lines_.refresh();
    const QModelIndex newest = lines_.index(lines_.rowCount() - 1);
    ui_->DebugList->setCurrentIndex(newest);
    ui_->DebugList->scrollTo(newest);
}

void frmDebug::setSaveEnabled(bool enabled) {
    ui_->mnuSaveTrace->setEnabled(enabled);
}

void frmDebug::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    refresh();
}

void frmDebug::save() {
    saver_.save(dialogs_.saveFile(
        this, {"Save Trace", "trace", "txt", {"Text Files (*.txt)", "All Files (*.*)"}}));
    refresh();
}

} // namespace quillmark

#include "windows/shared/MessageBoxes.h"

#include "base/Version.h"
#include "windows/shared/Text.h"

namespace quillmark {

namespace {

QMessageBox::StandardButton show(QMessageBox& box) {
    // A name of a profile or a file may look like mark-up.
    box.setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

QMessageBox::StandardButton ask(QWidget* owner, const QString& question,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton harmless,
                                QMessageBox::StandardButton onEnter) {
    QMessageBox box(QMessageBox::Question, shown(ApplicationTitle), question, buttons, owner);
    box.setDefaultButton(onEnter == QMessageBox::NoButton ? harmless : onEnter);
    box.setEscapeButton(harmless);
    return show(box);
}

void tellError(QWidget* owner, const QString& text) {
    QMessageBox box(QMessageBox::Warning, shown(ApplicationTitle), text, QMessageBox::Ok, owner);
    show(box);
}

} // namespace quillmark

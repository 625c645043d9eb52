#pragma once

#include <QMessageBox>
#include <QString>
#include <QWidget>

namespace quillmark {

/// Asks over `owner` and returns the answer. `harmless`, one of the buttons, is what closing the
/// box chooses, and the Enter key, too, unless `onEnter` names another one.
QMessageBox::StandardButton ask(QWidget* owner, const QString& question,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton harmless,
                                QMessageBox::StandardButton onEnter = QMessageBox::NoButton);

/// Tells of an error over `owner`, with an OK button.
void tellError(QWidget* owner, const QString& text);

} // namespace quillmark

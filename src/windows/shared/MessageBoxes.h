#pragma once

#include <QMessageBox>
#include <QString>
#include <QWidget>

#include <functional>

namespace quillmark {

/// Asks over `owner` and returns the answer. `harmless`, one of the buttons, is what closing the
/// box chooses, and the Enter key, too, unless `onEnter` names another one.
QMessageBox::StandardButton ask(QWidget* owner, const QString& question,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton harmless,
                                QMessageBox::StandardButton onEnter = QMessageBox::NoButton);

/// Tells `text` over `owner`, which may be null, with an OK button.
void tell(QWidget* owner, const QString& text);

/// Tells of an error over `owner`, with an OK button.
void tellError(QWidget* owner, const QString& text);

/// Runs what the user asked for. Whatever it throws, a Failure or another exception, ends here in
/// tellError(): Qt's event loop lets nothing through.
void guarded(QWidget* owner, const std::function<void()>& action);

} // namespace quillmark

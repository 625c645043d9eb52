#pragma once

#include <QMessageBox>
#include <QString>
#include <QWidget>

#include <functional>

namespace quillmark {

/// Asks over `owner` and returns the answer. Closing the box chooses `harmless`, one of the
/// buttons; so does the Enter key, unless `onEnter` names another one.
QMessageBox::StandardButton ask(QWidget* owner, const QString& question,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton harmless,
                                QMessageBox::StandardButton onEnter = QMessageBox::NoButton);

/// Shows `text` over `owner`, which may be null, with an OK button.
void tell(QWidget* owner, const QString& text);

/// Shows an error over `owner`, which may be null, with an OK button.
void tellError(QWidget* owner, const QString& text);

/// Runs what the user asked for. Any exception it throws ends here in tellError(): nothing may be
/// thrown through Qt's event loop.
void guarded(QWidget* owner, const std::function<void()>& action);

} // namespace quillmark

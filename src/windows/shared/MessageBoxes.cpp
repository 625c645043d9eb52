#include "windows/shared/MessageBoxes.h"

#include "base/Version.h"
#include "windows/shared/Text.h"

#include <exception>
#include <new>

namespace quillmark {

namespace {

QMessageBox::StandardButton show(QMessageBox& box) {
    // Names of profiles and files may look like markup.
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

void tell(QWidget* owner, const QString& text) {
    QMessageBox box(QMessageBox::Information, shown(ApplicationTitle), text, QMessageBox::Ok,
                    owner);
    show(box);
}

void tellError(QWidget* owner, const QString& text) {
    QMessageBox box(QMessageBox::Warning, shown(ApplicationTitle), text, QMessageBox::Ok, owner);
    show(box);
}

void guarded(QWidget* owner, const std::function<void()>& action) {
    try {
        action();
    } catch (const std::bad_alloc&) {
        tellError(owner, "An error has occurred: Out of memory");
    } catch (const std::exception& error) {
        tellError(owner, "An error has occurred: " + shownBriefly(error.what()));
    }
}

} // namespace quillmark

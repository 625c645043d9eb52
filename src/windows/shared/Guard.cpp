#include "windows/shared/Guard.h"

#include "base/Failure.h"
#include "base/Version.h"
#include "windows/shared/Text.h"

#include <QMessageBox>

namespace quillmark {

void guarded(QWidget* owner, const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        QMessageBox::warning(owner, shown(ApplicationTitle),
                             "An error has occurred: " + shown(failure.description()));
    }
}

} // namespace quillmark

#include "windows/shared/Guard.h"

#include "base/Failure.h"
#include "windows/shared/MessageBoxes.h"
#include "windows/shared/Text.h"

namespace quillmark {

void guarded(QWidget* owner, const std::function<void()>& action) {
    try {
        action();
    } catch (const Failure& failure) {
        tellError(owner, "An error has occurred: " + shown(failure.description()));
    }
}

} // namespace quillmark
